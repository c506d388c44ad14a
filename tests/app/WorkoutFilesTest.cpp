#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RecordFormat.h"
#include "app/Settings.h"
#include "app/WorkoutDamage.h"
#include "app/WorkoutFiles.h"
#include "base/FileError.h"

#include "fakes/RecordingScreen.h"
#include "support/TemporaryFolder.h"
#include "support/UnreadableFile.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A program directory of its own.
class WorkoutFiles : public testing::Test {
 protected:
  WorkoutFiles() { state.ProgramDirectory = folder.Path(); }

  void PutWorkout(const std::string& name, std::initializer_list<const char*> exercises) {
    ExerciseSlots workout;
    int slot = 0;
    for (const char* exercise : exercises) workout[slot++].ExerciseName = exercise;
    PutFile("workouts/" + name, EncodeWorkout(workout));
  }

  TemporaryFolder folder;
  ProgramState state;
  RecordingScreen screen;
};

TEST_F(WorkoutFiles, AreListedInNameOrderWithTheirExtension) {
  PutWorkout("tuesday.rpv", {});
  PutWorkout("Monday.RPV", {});
  PutFile("workouts/notes.txt", "");

  LoadWorkoutNames(state, screen);

  EXPECT_THAT(state.WorkoutNames, ElementsAre("Monday.RPV", "tuesday.rpv"));
  EXPECT_EQ(state.NumberOfWorkouts, 2);
  EXPECT_THAT(screen.calls, ElementsAre("names"));
  EXPECT_FALSE(state.ScreenUpdating);
}

TEST_F(WorkoutFiles, LeaveAnEmptyListWhenThereAreNone) {
  state.NumberOfWorkouts = 3;
  LoadWorkoutNames(state, screen);
  EXPECT_THAT(state.WorkoutNames, IsEmpty());
  EXPECT_EQ(state.NumberOfWorkouts, 0);
}

TEST_F(WorkoutFiles, LoadAndSelectTheFirstExercise) {
  PutWorkout("Monday.RPV", {"  Squat ", "Rowing"});
  state.WorkoutFileName = "Monday.RPV";
  state.CurrentExercise = 4;

  EXPECT_EQ(LoadWorkout(state, screen), WorkoutLoad::kLoaded);

  EXPECT_EQ(state.NumberOfExercises, 2);
  EXPECT_EQ(state.CurrentExercise, 0);
  EXPECT_EQ(state.Workout[0].ExerciseName.Text(), "Squat");
  EXPECT_THAT(screen.calls, ElementsAre("workout screen", "exercise screen"));
}

TEST_F(WorkoutFiles, EndAtTheFirstBlankName) {
  PutWorkout("Monday.RPV", {"A", "B", " ", "D", "E"});
  state.WorkoutFileName = "Monday.RPV";
  LoadWorkout(state, screen);
  EXPECT_EQ(state.NumberOfExercises, 2);
}

TEST_F(WorkoutFiles, CountNoMoreThanTheLimit) {
  PutWorkout("Monday.RPV", {"A", "B", "C", "D", "E", "F"});
  state.WorkoutFileName = "Monday.RPV";
  LoadWorkout(state, screen);
  EXPECT_EQ(state.NumberOfExercises, 5);
}

TEST_F(WorkoutFiles, AreFoundWithoutRegardToCase) {
  PutWorkout("monday.rpv", {"A"});
  state.WorkoutFileName = "Monday.RPV";
  EXPECT_EQ(LoadWorkout(state, screen), WorkoutLoad::kLoaded);
}

TEST_F(WorkoutFiles, ChangeNothingWhenOneIsMissing) {
  state.Workout[0].ExerciseName = "Kept";
  state.NumberOfExercises = 1;
  state.WorkoutFileName = "Gone.RPV";

  EXPECT_EQ(LoadWorkout(state, screen), WorkoutLoad::kNotFound);

  EXPECT_THAT(screen.messages, ElementsAre("Error: Workout file not found"));
  EXPECT_EQ(state.Workout[0].ExerciseName.Text(), "Kept");
  EXPECT_EQ(state.NumberOfExercises, 1);
}

TEST_F(WorkoutFiles, DoNothingWithoutAName) {
  state.WorkoutFileName = "  ";
  EXPECT_EQ(LoadWorkout(state, screen), WorkoutLoad::kNoName);
  EXPECT_THAT(screen.calls, IsEmpty());

  SaveWorkout(state);
  EXPECT_FALSE(std::filesystem::exists("workouts"));
}

TEST_F(WorkoutFiles, AreSavedFromAnyDirectory) {
  state.WorkoutFileName = "Monday.RPV";
  state.Workout[0].ExerciseName = "Squat";
  std::filesystem::current_path("/");

  SaveWorkout(state);

  EXPECT_EQ(GetFile(folder.Path() + "workouts/Monday.RPV"), EncodeWorkout(state.Workout));
}

TEST_F(WorkoutFiles, AreByteIdenticalWhenSavedTwice) {
  state.WorkoutFileName = "Monday.RPV";
  state.Workout[0].ExerciseName = "Développé 走る";
  SaveWorkout(state);
  const Bytes first = GetFile("workouts/Monday.RPV");
  SaveWorkout(state);
  EXPECT_EQ(GetFile("workouts/Monday.RPV"), first);
}

TEST_F(WorkoutFiles, ReplaceAFileOfAnotherCaseAndAddNone) {
  PutWorkout("monday.rpv", {"A"});
  state.WorkoutFileName = "Monday.RPV";
  ReplaceWorkoutFile(state);
  SaveWorkout(state);
  LoadWorkoutNames(state, screen);
  EXPECT_THAT(state.WorkoutNames, ElementsAre("monday.rpv"));
}

TEST_F(WorkoutFiles, AreKnownToBeUnchangedAfterLoadingAndSaving) {
  PutWorkout("Monday.RPV", {"A"});
  state.WorkoutFileName = "Monday.RPV";
  LoadWorkout(state, screen);
  EXPECT_FALSE(WorkoutChangedOnDisk(state));
  SaveWorkout(state);
  SaveWorkout(state);
  EXPECT_FALSE(WorkoutChangedOnDisk(state));
}

TEST_F(WorkoutFiles, AreKnownToBeChangedByAnotherProcess) {
  PutWorkout("Monday.RPV", {"A"});
  state.WorkoutFileName = "Monday.RPV";
  LoadWorkout(state, screen);
  ProgramState other = state;

  SaveWorkout(other);
  std::filesystem::current_path("/");
  EXPECT_TRUE(WorkoutChangedOnDisk(state));

  std::filesystem::current_path(folder.Path());
  LoadWorkout(state, screen);
  EXPECT_FALSE(WorkoutChangedOnDisk(state));
}

TEST_F(WorkoutFiles, DoNotReplaceWhatAnotherProcessHasWritten) {
  PutWorkout("Monday.RPV", {"A"});
  state.WorkoutFileName = "Monday.RPV";
  LoadWorkout(state, screen);
  ProgramState other = state;
  other.Workout[0].ExerciseName = "Grown";
  SaveWorkout(other);
  const Bytes grown = GetFile("workouts/Monday.RPV");

  EXPECT_THROW(SaveWorkout(state), FileError);

  EXPECT_EQ(GetFile("workouts/Monday.RPV"), grown);
}

TEST_F(WorkoutFiles, DoNotReplaceWhatWasNotLoaded) {
  PutWorkout("Monday.RPV", {"A"});
  PutWorkout("Tuesday.RPV", {"B"});
  const Bytes before = GetFile("workouts/Tuesday.RPV");
  state.WorkoutFileName = "Monday.RPV";
  LoadWorkout(state, screen);
  state.WorkoutFileName = "Tuesday.RPV";

  EXPECT_THROW(SaveWorkout(state), FileError);

  EXPECT_EQ(GetFile("workouts/Tuesday.RPV"), before);
}

TEST_F(WorkoutFiles, AreReplacedWhateverTheyHoldWhenThatIsMeant) {
  PutWorkout("Monday.RPV", {"A"});
  state.WorkoutFileName = "Monday.RPV";
  ReplaceWorkoutFile(state);
  SaveWorkout(state);
  EXPECT_EQ(GetFile("workouts/Monday.RPV"), EncodeWorkout(state.Workout));
}

TEST_F(WorkoutFiles, AreNotChangedWhereTheyAreGoneOrNeverSeen) {
  PutWorkout("Monday.RPV", {"A"});
  state.WorkoutFileName = "Monday.RPV";
  EXPECT_FALSE(WorkoutChangedOnDisk(state));
  LoadWorkout(state, screen);
  std::filesystem::remove("workouts/Monday.RPV");
  EXPECT_FALSE(WorkoutChangedOnDisk(state));
  SaveWorkout(state);
  PutWorkout("Tuesday.RPV", {"B"});
  state.WorkoutFileName = "Tuesday.RPV";
  EXPECT_FALSE(WorkoutChangedOnDisk(state));
  state.WorkoutFileName = "";
  EXPECT_FALSE(WorkoutChangedOnDisk(state));
}

TEST_F(WorkoutFiles, AreLoadedAgainOnlyWhenTheyAreChanged) {
  PutWorkout("Monday.RPV", {"A", "B"});
  state.WorkoutFileName = "Monday.RPV";
  LoadWorkout(state, screen);
  state.CurrentExercise = 1;
  ProgramState other = state;
  screen.calls.clear();
  ReloadChangedWorkout(state, screen);
  EXPECT_THAT(screen.calls, IsEmpty());

  other.Workout[1].SetValue1[0] = 52.5F;
  SaveWorkout(other);
  ReloadChangedWorkout(state, screen);

  EXPECT_EQ(state.Workout[1].SetValue1[0], 52.5F);
  EXPECT_EQ(state.CurrentExercise, 1);
  EXPECT_THAT(screen.calls, ElementsAre("workout screen", "exercise screen"));
}

TEST_F(WorkoutFiles, AreToldToBeOthersWhenTheirRowsAre) {
  PutWorkout("Monday.RPV", {"A", "B"});
  state.WorkoutFileName = "Monday.RPV";
  LoadWorkout(state, screen);
  state.CurrentExercise = 1;
  ProgramState other = state;
  other.Workout[1].ExerciseName = "";
  SaveWorkout(other);

  EXPECT_THROW(ReloadChangedWorkout(state, screen), WorkoutReplaced);

  EXPECT_EQ(state.NumberOfExercises, 1);
  EXPECT_EQ(state.CurrentExercise, 0);
  EXPECT_NO_THROW(ReloadChangedWorkout(state, screen));
}

/// A loaded file with two exercises in use and one behind a blank name.
class DamagedWorkout : public WorkoutFiles {
 protected:
  static constexpr const char* kDamage =
      "Monday.RPV seems to be damaged: it holds numbers that no workout can have.";

  DamagedWorkout() {
    for (const int slot : {0, 1, 3}) workout[slot].ExerciseName = "Squat";
    state.WorkoutFileName = "Monday.RPV";
  }

  void Load() {
    PutFile("workouts/Monday.RPV", EncodeWorkout(workout));
    screen.messages.clear();
    screen.calls.clear();
    EXPECT_EQ(LoadWorkout(state, screen), WorkoutLoad::kLoaded);
  }

  ExerciseSlots workout;
};

TEST_F(DamagedWorkout, IsToldOnceItIsShown) {
  for (const std::int16_t count : std::initializer_list<std::int16_t>{-7293, -1, 18, 32767}) {
    workout[1].NumberOfSets = count;
    Load();
    EXPECT_THAT(screen.messages, ElementsAre(kDamage)) << count;
    EXPECT_THAT(screen.titles, testing::Each("Repvolta"));
    EXPECT_THAT(screen.calls, ElementsAre("workout screen", "exercise screen", "message"));
  }
  workout[1].NumberOfSets = 0;
  for (const std::int16_t count : std::initializer_list<std::int16_t>{-32768, -1, 13}) {
    workout[0].NumberOfMusicFiles = count;
    Load();
    EXPECT_THAT(screen.messages, ElementsAre(kDamage)) << count;
  }
}

TEST_F(DamagedWorkout, IsToldOnceForAllItsExercises) {
  for (const int slot : {0, 1}) workout[slot].NumberOfSets = workout[slot].NumberOfMusicFiles = -1;
  Load();
  EXPECT_THAT(screen.messages, ElementsAre(kDamage));
}

TEST_F(DamagedWorkout, IsNoneWhereEverySlotIsUsed) {
  for (const int slot : {0, 1}) {
    workout[slot].NumberOfSets = 17;
    workout[slot].NumberOfMusicFiles = 12;
  }
  Load();
  EXPECT_THAT(screen.messages, IsEmpty());
}

TEST_F(DamagedWorkout, IsNoneForASlotThatIsNotInUse) {
  workout[2].NumberOfSets = workout[3].NumberOfSets = -1;
  Load();
  EXPECT_THAT(screen.messages, IsEmpty());
}

TEST_F(DamagedWorkout, LeavesTheFileAsItIs) {
  workout[0].NumberOfSets = -1;
  Load();
  EXPECT_EQ(GetFile("workouts/Monday.RPV"), EncodeWorkout(workout));
}

/// Cannot show the workout.
class ScreenThatThrows : public RecordingScreen {
 public:
  void UpdateWorkoutScreen() override { throw std::overflow_error("The number is too large"); }
};

TEST_F(DamagedWorkout, IsAllThatIsToldWhereItCannotBeShown) {
  workout[0].NumberOfSets = -1;
  PutFile("workouts/Monday.RPV", EncodeWorkout(workout));
  ScreenThatThrows throwing;
  EXPECT_EQ(LoadWorkout(state, throwing), WorkoutLoad::kLoaded);
  EXPECT_THAT(throwing.messages, ElementsAre(kDamage));

  workout[0].NumberOfSets = 1;
  PutFile("workouts/Monday.RPV", EncodeWorkout(workout));
  EXPECT_THROW(LoadWorkout(state, throwing), std::overflow_error);
}

TEST_F(DamagedWorkout, IsToldWhenAnotherProgramDamagedIt) {
  Load();
  workout[1].NumberOfSets = -1;
  PutFile("workouts/other", EncodeWorkout(workout));
  std::filesystem::rename("workouts/other", "workouts/Monday.RPV");
  try {
    ReloadChangedWorkout(state, screen);
    FAIL() << "nothing was told";
  } catch (const WorkoutReplaced& told) {
    EXPECT_EQ(told.what(),
              "Monday.RPV was changed by another program and has been loaded again.\r" +
                  std::string(kDamage));
  }
}

/// A loaded file of any size.
class OddSize : public WorkoutFiles {
 protected:
  OddSize() { state.WorkoutFileName = "Monday.RPV"; }

  void LoadFileOf(std::size_t size) {
    PutFile("workouts/Monday.RPV", Bytes(size));
    EXPECT_EQ(LoadWorkout(state, screen), WorkoutLoad::kLoaded);
  }
};

TEST_F(OddSize, IsToldOfAFileThatIsTooShort) {
  constexpr const char* kFilledUp = "; what is missing was filled up with blanks.";
  LoadFileOf(0);
  EXPECT_EQ(OddSizeOf(state), std::string("Monday.RPV has 0 bytes instead of 266240") + kFilledUp);
  LoadFileOf(266239);
  EXPECT_EQ(OddSizeOf(state),
            std::string("Monday.RPV has 266239 bytes instead of 266240") + kFilledUp);
}

TEST_F(OddSize, IsToldOfAFileThatIsTooLong) {
  LoadFileOf(300000);
  EXPECT_EQ(OddSizeOf(state),
            "Monday.RPV has 300000 bytes instead of 266240; what is too much was ignored.");
}

TEST_F(OddSize, IsNoneOfAFileAsItShouldBe) {
  LoadFileOf(266240);
  EXPECT_EQ(OddSizeOf(state), "");
}

TEST_F(OddSize, IsNoneOnceTheWorkoutIsSaved) {
  LoadFileOf(0);
  SaveWorkout(state);
  EXPECT_EQ(OddSizeOf(state), "");
}

TEST_F(OddSize, IsNoneWithoutAWorkout) {
  EXPECT_EQ(OddSizeOf(state), "");
  LoadFileOf(0);
  state.WorkoutFileName = "";
  EXPECT_EQ(OddSizeOf(state), "");
}

class SettingsFile : public WorkoutFiles {};

TEST_F(SettingsFile, HasDefaultsWhenItIsMissing) {
  state.Settings.MusicPath = "/music";
  LoadSettings(state);
  EXPECT_TRUE(state.Settings.MusicPath.IsBlank());
  EXPECT_EQ(state.Settings.VoiceVolume, 70);
  EXPECT_EQ(state.Settings.DefaultExerciseTime, 0);
  EXPECT_EQ(state.Settings.IncludeWeightValues, kFalse);
}

TEST_F(SettingsFile, GivesBackWhatWasSaved) {
  state.Settings.MusicPath = "/Musik/Übung";
  state.Settings.AudioFormat = "3";
  const SettingsRecord saved = state.Settings;
  SaveSettings(state);
  state.Settings = {};

  LoadSettings(state);

  EXPECT_EQ(state.Settings, saved);
}

TEST_F(SettingsFile, IsKeptWhenItCouldNotBeRead) {
  state.Settings.MusicPath = "/music";
  SaveSettings(state);
  const Bytes before = GetFile("settings.dat");
  {
    const UnreadableFile unreadable("settings.dat");
    EXPECT_THROW(LoadSettings(state), FileError);
  }
  state.Settings = {};

  EXPECT_THROW(SaveSettings(state), FileError);
  EXPECT_EQ(GetFile("settings.dat"), before);

  LoadSettings(state);
  SaveSettings(state);
  EXPECT_EQ(GetFile("settings.dat"), before);
}

TEST_F(SettingsFile, IsSavedInTheProgramDirectory) {
  std::filesystem::current_path("/");
  SaveSettings(state);
  EXPECT_TRUE(std::filesystem::exists(folder.Path() + "settings.dat"));
}

TEST_F(SettingsFile, IsNotSavedWhereTheDirectoryIsGone) {
  state.ProgramDirectory = folder.Path() + "gone/";
  EXPECT_THROW(SaveSettings(state), FileError);
}

}  // namespace
}  // namespace repvolta
