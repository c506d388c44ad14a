#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RecordFormat.h"
#include "app/WorkoutFiles.h"
#include "base/FileError.h"

#include "support/AtFlush.h"
#include "support/TemporaryFolder.h"
#include "support/UnreadableFile.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StrEq;
using testing::ThrowsMessage;

/// A fresh program directory.
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
};

TEST_F(WorkoutFiles, AreListedInNameOrderWithTheirExtension) {
  PutWorkout("tuesday.rpv", {});
  PutWorkout("Monday.RPV", {});
  PutFile("workouts/notes.txt", "");

  LoadWorkoutNames(state);

  EXPECT_THAT(state.WorkoutNames, ElementsAre("Monday.RPV", "tuesday.rpv"));
  EXPECT_EQ(state.NumberOfWorkouts, 2);
  EXPECT_FALSE(state.ScreenUpdating);
}

TEST_F(WorkoutFiles, LeaveAnEmptyListWhenThereAreNone) {
  state.NumberOfWorkouts = 3;
  LoadWorkoutNames(state);
  EXPECT_THAT(state.WorkoutNames, IsEmpty());
  EXPECT_EQ(state.NumberOfWorkouts, 0);
}

TEST_F(WorkoutFiles, AreReadWithoutMakingTheirFolder) {
  state.NumberOfWorkouts = 3;
  ReadWorkoutNames(state);
  EXPECT_THAT(state.WorkoutNames, IsEmpty());
  EXPECT_EQ(state.NumberOfWorkouts, 0);
  EXPECT_FALSE(std::filesystem::exists("workouts"));
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

  EXPECT_EQ(LoadWorkout(state), WorkoutLoad::kLoaded);

  EXPECT_EQ(state.NumberOfExercises, 2);
  EXPECT_EQ(state.CurrentExercise, 0);
  EXPECT_EQ(state.Workout[0].ExerciseName.Text(), "Squat");
}

TEST_F(WorkoutFiles, EndAtTheFirstBlankName) {
  PutWorkout("Monday.RPV", {"A", "B", " ", "D", "E"});
  state.WorkoutFileName = "Monday.RPV";
  LoadWorkout(state);
  EXPECT_EQ(state.NumberOfExercises, 2);
}

TEST_F(WorkoutFiles, CountNoMoreThanTheLimit) {
  PutWorkout("Monday.RPV", {"A", "B", "C", "D", "E", "F"});
  state.WorkoutFileName = "Monday.RPV";
  LoadWorkout(state);
  EXPECT_EQ(state.NumberOfExercises, 5);
}

TEST_F(WorkoutFiles, AreFoundWithoutRegardToCase) {
  PutWorkout("monday.rpv", {"A"});
  state.WorkoutFileName = "Monday.RPV";
  EXPECT_EQ(LoadWorkout(state), WorkoutLoad::kLoaded);
}

TEST_F(WorkoutFiles, ChangeNothingWhenOneIsMissing) {
  state.Workout[0].ExerciseName = "Kept";
  state.NumberOfExercises = 1;
  state.WorkoutFileName = "Gone.RPV";

  EXPECT_EQ(LoadWorkout(state), WorkoutLoad::kNotFound);

  EXPECT_EQ(state.Workout[0].ExerciseName.Text(), "Kept");
  EXPECT_EQ(state.NumberOfExercises, 1);
}

TEST_F(WorkoutFiles, DoNothingWithoutAName) {
  state.WorkoutFileName = "  ";
  EXPECT_EQ(LoadWorkout(state), WorkoutLoad::kNoName);

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
  LoadWorkoutNames(state);
  EXPECT_THAT(state.WorkoutNames, ElementsAre("monday.rpv"));
}

TEST_F(WorkoutFiles, AreFoundAgainWhenAnotherProgramRenamesThemInAnotherCase) {
  PutWorkout("MONDAY.rpv", {"A"});
  state.WorkoutFileName = "Monday.RPV";
  LoadWorkout(state);
  std::filesystem::rename("workouts/MONDAY.rpv", "workouts/monday.RPV");
  state.Workout[0].SetValue1[0] = 60;
  SaveWorkout(state);
  LoadWorkoutNames(state);
  EXPECT_THAT(state.WorkoutNames, ElementsAre("monday.RPV"));
  EXPECT_EQ(DecodeWorkout(GetFile("workouts/monday.RPV"))[0].SetValue1[0], 60);
}

TEST_F(WorkoutFiles, AreSavedWhereTheyWereFound) {
  PutWorkout("MONDAY.rpv", {"A"});
  state.WorkoutFileName = "Monday.RPV";
  LoadWorkout(state);
  // One that a search would find first.
  PutWorkout("MONDAY.RPV", {"B"});
  SaveWorkout(state);
  EXPECT_EQ(DecodeWorkout(GetFile("workouts/MONDAY.rpv"))[0].ExerciseName.Text(), "A");
  EXPECT_EQ(DecodeWorkout(GetFile("workouts/MONDAY.RPV"))[0].ExerciseName.Text(), "B");
}

TEST_F(WorkoutFiles, AreKnownToBeUnchangedAfterLoadingAndSaving) {
  PutWorkout("Monday.RPV", {"A"});
  state.WorkoutFileName = "Monday.RPV";
  LoadWorkout(state);
  EXPECT_FALSE(WorkoutChangedOnDisk(state));
  SaveWorkout(state);
  SaveWorkout(state);
  EXPECT_FALSE(WorkoutChangedOnDisk(state));
}

TEST_F(WorkoutFiles, AreKnownToBeChangedByAnotherProcess) {
  PutWorkout("Monday.RPV", {"A"});
  state.WorkoutFileName = "Monday.RPV";
  LoadWorkout(state);
  ProgramState other = state;

  SaveWorkout(other);
  std::filesystem::current_path("/");
  EXPECT_TRUE(WorkoutChangedOnDisk(state));

  std::filesystem::current_path(folder.Path());
  LoadWorkout(state);
  EXPECT_FALSE(WorkoutChangedOnDisk(state));
}

TEST_F(WorkoutFiles, DoNotReplaceWhatAnotherProcessHasWritten) {
  PutWorkout("Monday.RPV", {"A"});
  state.WorkoutFileName = "Monday.RPV";
  LoadWorkout(state);
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
  LoadWorkout(state);
  const AtFlush synced([&] { PutWorkout("Monday.RPV", {"Synced"}); });

  EXPECT_THROW(SaveWorkout(state), FileError);

  EXPECT_EQ(DecodeWorkout(GetFile("workouts/Monday.RPV"))[0].ExerciseName.Text(), "Synced");
}

TEST_F(WorkoutFiles, DoNotReplaceWhatWasNotLoaded) {
  PutWorkout("Monday.RPV", {"A"});
  PutWorkout("Tuesday.RPV", {"B"});
  const Bytes before = GetFile("workouts/Tuesday.RPV");
  state.WorkoutFileName = "Monday.RPV";
  LoadWorkout(state);
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
  LoadWorkout(state);
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
  LoadWorkout(state);
  SaveWorkout(state);
  EXPECT_EQ(GetFile("workouts/Monday.RPV"), file);
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

  ReadWorkoutAgain(state);

  EXPECT_EQ(state.Workout[0].SetValue1[0], 60);
}

}  // namespace
}  // namespace repvolta
