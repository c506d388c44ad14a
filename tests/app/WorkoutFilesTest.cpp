#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RecordFormat.h"
#include "app/WorkoutFiles.h"
#include "base/FileError.h"

#include "fakes/RecordingScreen.h"
#include "support/AtFlush.h"
#include "support/TemporaryFolder.h"
#include "support/UnreadableFile.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StrEq;
using testing::ThrowsMessage;

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

TEST_F(WorkoutFiles, AreNotSavedWhereTheirFolderCannotBeMade) {
  state.WorkoutFileName = "Monday.RPV";
  const UnreadableFile unwritable(folder.Path(), std::filesystem::perms::owner_exec);
  EXPECT_THAT([&] { SaveWorkout(state); },
              ThrowsMessage<FileError>(StrEq("workouts/ could not be created: Permission denied")));
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

  EXPECT_THAT([&] { SaveWorkout(state); },
              ThrowsMessage<FileError>(StrEq("workouts/Monday.RPV could not be written: "
                                             "Another program has changed it meanwhile")));

  EXPECT_EQ(GetFile("workouts/Monday.RPV"), grown);
}

TEST_F(WorkoutFiles, DoNotReplaceWhatAnotherWritesDuringTheSave) {
  PutWorkout("Monday.RPV", {"A"});
  state.WorkoutFileName = "Monday.RPV";
  LoadWorkout(state, screen);
  const AtFlush synced([&] { PutWorkout("Monday.RPV", {"Synced"}); });

  EXPECT_THROW(SaveWorkout(state), FileError);

  EXPECT_EQ(DecodeWorkout(GetFile("workouts/Monday.RPV"))[0].ExerciseName.Text(), "Synced");
}

TEST_F(WorkoutFiles, DoNotReplaceWhatWasNotLoaded) {
  PutWorkout("Monday.RPV", {"A"});
  PutWorkout("Tuesday.RPV", {"B"});
  const Bytes before = GetFile("workouts/Tuesday.RPV");
  state.WorkoutFileName = "Monday.RPV";
  LoadWorkout(state, screen);
  state.WorkoutFileName = "Tuesday.RPV";

  EXPECT_THAT([&] { SaveWorkout(state); },
              ThrowsMessage<FileError>(StrEq("workouts/Tuesday.RPV could not be written: "
                                             "It holds another workout, which was not loaded")));

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

TEST_F(WorkoutFiles, AreReadToTheirLastByte) {
  Bytes file = EncodeWorkout({});
  file.back() = 'x';
  PutFile("workouts/Monday.RPV", file);
  state.WorkoutFileName = "Monday.RPV";
  LoadWorkout(state, screen);
  SaveWorkout(state);
  EXPECT_EQ(GetFile("workouts/Monday.RPV"), file);
}

/// Notes whether the program itself fills the list of workouts.
class ScreenThatLooks : public RecordingScreen {
 public:
  explicit ScreenThatLooks(const ProgramState& state) : state_(state) {}
  void ShowWorkoutNames() override { wasUpdating = state_.ScreenUpdating; }

  bool wasUpdating = false;

 private:
  const ProgramState& state_;
};

TEST_F(WorkoutFiles, AreListedByTheProgramItself) {
  ScreenThatLooks looking(state);
  LoadWorkoutNames(state, looking);
  EXPECT_TRUE(looking.wasUpdating);
}

TEST_F(WorkoutFiles, AreReplacedAndLoadedAgainFromAnyDirectory) {
  PutWorkout("Monday.RPV", {"A"});
  state.WorkoutFileName = "Monday.RPV";
  std::filesystem::current_path("/");
  ReplaceWorkoutFile(state);
  ASSERT_TRUE(state.KnownFile);
  state.Workout[0].ExerciseName = "A";
  state.NumberOfExercises = 1;
  SaveWorkout(state);
  ProgramState other = state;
  other.Workout[0].SetValue1[0] = 60;
  SaveWorkout(other);
  std::filesystem::current_path("/");

  ReloadChangedWorkout(state, screen);

  EXPECT_EQ(state.Workout[0].SetValue1[0], 60);
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

/// Two exercises, of which the second is the current one; another program changes them.
class ChangedWorkout : public WorkoutFiles {
 protected:
  ChangedWorkout() {
    PutWorkout("Monday.RPV", {"A", "B"});
    state.WorkoutFileName = "Monday.RPV";
    LoadWorkout(state, screen);
    for (const int slot : {0, 1}) {
      state.Workout[slot].NumberOfSets = 1;
      state.Workout[slot].NumberOfMusicFiles = 1;
      state.Workout[slot].MusicFile[0] = "/a.mp3";
    }
    SaveWorkout(state);
    state.CurrentExercise = 1;
  }

  void Change(const std::function<void(ExerciseSlots&)>& change) {
    ProgramState other = state;
    change(other.Workout);
    SaveWorkout(other);
  }
};

TEST_F(ChangedWorkout, HasOtherRowsWhereSetsWereAdded) {
  Change([](ExerciseSlots& workout) { workout[0].NumberOfSets = 2; });
  EXPECT_THROW(ReloadChangedWorkout(state, screen), WorkoutReplaced);
}

TEST_F(ChangedWorkout, HasOtherRowsWhereTheMusicThatIsShownIsAnother) {
  Change([](ExerciseSlots& workout) { workout[1].MusicFile[0] = "/b.mp3"; });
  EXPECT_THROW(ReloadChangedWorkout(state, screen), WorkoutReplaced);
}

TEST_F(ChangedWorkout, HasTheSameRowsWhereTheMusicOfAnotherExerciseIsAnother) {
  Change([](ExerciseSlots& workout) { workout[0].MusicFile[0] = "/b.mp3"; });
  EXPECT_NO_THROW(ReloadChangedWorkout(state, screen));
  EXPECT_EQ(state.Workout[0].MusicFile[0].Text(), "/b.mp3");
}

TEST_F(ChangedWorkout, MayClaimMoreMusicThanThereAreSlots) {
  Change([](ExerciseSlots& workout) { workout[1].NumberOfMusicFiles = 32767; });
  EXPECT_THROW(ReloadChangedWorkout(state, screen), WorkoutReplaced);
}

TEST_F(ChangedWorkout, KeepsTheCurrentExerciseInUse) {
  state.CurrentExercise = 2;
  Change([](ExerciseSlots& workout) { workout[0].SetValue1[0] = 1; });
  EXPECT_THROW(ReloadChangedWorkout(state, screen), WorkoutReplaced);
  EXPECT_EQ(state.CurrentExercise, 0);
}

}  // namespace
}  // namespace repvolta
