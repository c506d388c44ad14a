#include <filesystem>
#include <iterator>
#include <stdexcept>

#include "app/RecordFormat.h"
#include "base/FileError.h"
#include "editing/LoadedWorkout.h"
#include "editing/WorkoutEditing.h"

#include "support/EditorFixture.h"
#include "support/UnreadableFile.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;
using testing::ThrowsMessage;

class WorkoutEditing : public EditorFixture {
 protected:
  void Create(const std::string& name) {
    dialogs.answers = {name};
    CreateNewWorkoutButton_Click(editor);
  }

  void Delete() {
    dialogs.answers = {"OK"};
    DeleteSelectedWorkoutButton_Click(editor);
  }

  /// Lists the workout "Tuesday" of these bytes behind "Monday", which stays selected.
  void ListTuesday(const Bytes& bytes = EncodeWorkout({})) {
    PutFile("workouts/Tuesday.RPV", bytes);
    ListWorkouts(editor);
    screen.SelectWorkout(0);
  }

  /// The box shows the choice before the command runs.
  void Choose(int index) {
    screen.SelectWorkout(index);
    WorkoutDropBox_Click(editor, screen.workouts.rows[static_cast<std::size_t>(index)]);
  }
};

TEST_F(WorkoutEditing, CreatingAsksForTheName) {
  Create("");
  EXPECT_THAT(dialogs.asked, ElementsAre("ask|New Workout|Enter a name for the new Workout"));
}

TEST_F(WorkoutEditing, CreatingStopsWithoutAName) {
  Create("   ");
  EXPECT_EQ(state.WorkoutFileName, "Monday.RPV");
  EXPECT_THAT(screen.workouts.rows, ElementsAre("Monday.RPV"));
}

TEST_F(WorkoutEditing, ANewWorkoutIsAddedAtTheEndAndSelected) {
  Create("  Friday  ");
  EXPECT_THAT(screen.workouts.rows, ElementsAre("Monday.RPV", "Friday.RPV"));
  EXPECT_EQ(screen.workouts.selected, 1);
  EXPECT_EQ(state.WorkoutFileName, "Friday.RPV");
  EXPECT_EQ(state.NumberOfWorkouts, 2);
}

TEST_F(WorkoutEditing, ANewWorkoutIsSavedWithFiveInitialisedExercises) {
  AddNewExercise("Squat").SetValue1[0] = 7;
  Create("Friday");
  const ExerciseSlots saved = Saved("Friday.RPV");
  for (int i = 0; i < MaxExercises; ++i) {
    EXPECT_TRUE(saved[i].ExerciseName.IsBlank()) << i;
    EXPECT_EQ(saved[i].TargetExerciseTime, 300) << i;
    EXPECT_EQ(saved[i].SetValue1[0], 0) << i;
    EXPECT_EQ(saved[i].UserField1Name.Text(), "User1") << i;
    EXPECT_EQ(saved[i].NextUpdate1[2], kToday) << i;
  }
  EXPECT_EQ(state.NumberOfExercises, 0);
  EXPECT_THAT(screen.exercises.rows, IsEmpty());
}

TEST_F(WorkoutEditing, CreatingShowsTheWorkoutTab) {
  screen.tab = WindowTab::kSettings;
  Create("Friday");
  EXPECT_EQ(screen.tab, WindowTab::kWorkout);
}

TEST_F(WorkoutEditing, ANameThatIsUsedReplacesTheWorkoutAndIsListedTwice) {
  AddNewExercise("Squat");
  Create("Monday");
  EXPECT_THAT(screen.workouts.rows, ElementsAre("Monday.RPV", "Monday.RPV"));
  EXPECT_EQ(screen.workouts.selected, 1);
  EXPECT_TRUE(Saved()[0].ExerciseName.IsBlank());
}

TEST_F(WorkoutEditing, ANameThatNoFileCanHaveIsRefusedBeforeAnythingIsCreated) {
  const std::vector<std::string> names = {"a/b",
                                          "/",
                                          ".",
                                          "..",
                                          "a\nb",
                                          std::string("\x7F"),
                                          "../up",
                                          std::string(252, 'x'),
                                          std::string(5000, 'x')};
  for (const std::string& name : names) {
    dialogs.asked.clear();
    Create(name);
    ASSERT_THAT(dialogs.asked, SizeIs(2)) << name;
    EXPECT_THAT(dialogs.asked[1], HasSubstr("message|New Workout|A workout cannot have this name"));
    EXPECT_THAT(screen.workouts.rows, ElementsAre("Monday.RPV")) << name;
    EXPECT_EQ(state.WorkoutFileName, "Monday.RPV") << name;
  }
  EXPECT_EQ(std::distance(fs::directory_iterator("workouts"), fs::directory_iterator()), 1);
}

TEST_F(WorkoutEditing, NamesWithAccentsAndJapaneseAreFileNames) {
  for (const std::string name : {"Übung é", "月曜日", "<b>bold"}) {
    Create(name);
    EXPECT_TRUE(fs::exists("workouts/" + name + ".RPV")) << name;
    EXPECT_EQ(screen.workouts.rows.back(), name + ".RPV");
  }
}

TEST_F(WorkoutEditing, AWorkoutThatCannotBeSavedIsNotCreated) {
  AddNewExercise("Squat");
  BlockWorkouts();
  EXPECT_THAT([this] { Create("Friday"); },
              ThrowsMessage<FileError>(StartsWith("workouts/Friday.RPV could not be")));
  EXPECT_EQ(state.WorkoutFileName, "Monday.RPV");
  EXPECT_EQ(state.Workout[0].ExerciseName.Text(), "Squat");
  EXPECT_THAT(screen.workouts.rows, ElementsAre("Monday.RPV"));
  EXPECT_EQ(screen.workouts.selected, 0);
  EXPECT_THAT(screen.exercises.rows, ElementsAre("Squat"));
}

TEST_F(WorkoutEditing, ADefaultTimeThatDoesNotFitCreatesNothing) {
  state.Settings.DefaultExerciseTime = 600;
  EXPECT_THAT([this] { Create("Friday"); },
              ThrowsMessage<std::overflow_error>("The number is too large"));
  EXPECT_FALSE(fs::exists("workouts/Friday.RPV"));
  EXPECT_EQ(state.WorkoutFileName, "Monday.RPV");
}

TEST_F(WorkoutEditing, DeletingAsksWithTheFileName) {
  dialogs.answers = {"Cancel"};
  DeleteSelectedWorkoutButton_Click(editor);
  EXPECT_THAT(
      dialogs.asked,
      ElementsAre("confirm|Delete Workout|Are you SURE you want to delete workout\rMonday.RPV"));
  EXPECT_EQ(state.WorkoutFileName, "Monday.RPV");
  EXPECT_TRUE(fs::exists("workouts/Monday.RPV"));
}

TEST_F(WorkoutEditing, DeletingTakesTheFileOfTheNameInTheCurrentDirectory) {
  PutFile("Monday.RPV", "beside");
  Delete();
  EXPECT_FALSE(fs::exists("Monday.RPV"));
  EXPECT_TRUE(fs::exists("workouts/Monday.RPV"));
  EXPECT_EQ(state.WorkoutFileName, "");
  EXPECT_EQ(screen.workouts.selected, -1);
}

TEST_F(WorkoutEditing, DeletingListsTheWorkoutsAnew) {
  PutFile("Monday.RPV", "beside");
  PutFile("workouts/Late.RPV", EncodeWorkout({}));
  Delete();
  EXPECT_THAT(screen.workouts.rows, ElementsAre("Late.RPV", "Monday.RPV"));
}

TEST_F(WorkoutEditing, DeletingLeavesTheWorkoutInMemoryAndOnTheScreen) {
  AddNewExercise("Squat");
  PutFile("Monday.RPV", "beside");
  Delete();
  EXPECT_EQ(state.Workout[0].ExerciseName.Text(), "Squat");
  EXPECT_THAT(screen.exercises.rows, ElementsAre("Squat"));
}

TEST_F(WorkoutEditing, NothingIsDeletedWithoutAWorkout) {
  state.WorkoutFileName = " ";
  DeleteSelectedWorkoutButton_Click(editor);
  EXPECT_THAT(dialogs.asked, IsEmpty());
}

TEST_F(WorkoutEditing, AFileThatIsNotThereIsToldAndNothingChanges) {
  EXPECT_THAT(
      [this] { Delete(); },
      ThrowsMessage<FileError>("Monday.RPV could not be deleted: No such file or directory"));
  EXPECT_EQ(state.WorkoutFileName, "Monday.RPV");
}

TEST_F(WorkoutEditing, AReadOnlyFileIsNotDeleted) {
  PutFile("Monday.RPV", "beside");
  fs::permissions("Monday.RPV", fs::perms::owner_read);
  EXPECT_THAT([this] { Delete(); },
              ThrowsMessage<FileError>("Monday.RPV could not be deleted: it is read-only"));
  EXPECT_TRUE(fs::exists("Monday.RPV"));
}

TEST_F(WorkoutEditing, ChoosingLoadsTheWorkout) {
  AddNewExercise("Squat");
  ListTuesday();
  Choose(1);
  EXPECT_EQ(state.WorkoutFileName, "Tuesday.RPV");
  EXPECT_THAT(screen.exercises.rows, IsEmpty());
  Choose(0);
  EXPECT_EQ(state.WorkoutFileName, "Monday.RPV");
  EXPECT_THAT(screen.exercises.rows, ElementsAre("Squat"));
}

TEST_F(WorkoutEditing, ChoosingTheSelectedWorkoutLoadsItAgain) {
  ExerciseSlots changed;
  changed[0].ExerciseName = "Row";
  PutFile("workouts/Monday.RPV", EncodeWorkout(changed));
  Choose(0);
  EXPECT_THAT(screen.exercises.rows, ElementsAre("Row"));
}

TEST_F(WorkoutEditing, NoWorkoutCanBeChosenToo) {
  WorkoutDropBox_Click(editor, "");
  EXPECT_EQ(state.WorkoutFileName, "");
  EXPECT_THAT(dialogs.asked, IsEmpty());
}

TEST_F(WorkoutEditing, ALoadSelectsTheFirstExercise) {
  AddNewExercise("Squat");
  AddNewExercise("Row");
  state.CurrentExercise = 1;
  screen.UpdateWorkoutScreen();
  Choose(0);
  EXPECT_EQ(screen.exercises.selected, 0);
}

TEST_F(WorkoutEditing, AVanishedWorkoutIsToldAndTheOneBeforeStaysChosen) {
  AddNewExercise("Squat");
  ListTuesday();
  fs::remove("workouts/Tuesday.RPV");
  Choose(1);
  EXPECT_THAT(dialogs.asked, ElementsAre("message|Repvolta|Error: Workout file not found"));
  EXPECT_EQ(state.WorkoutFileName, "Monday.RPV");
  EXPECT_EQ(screen.workouts.selected, 0);
  EXPECT_THAT(screen.exercises.rows, ElementsAre("Squat"));
}

TEST_F(WorkoutEditing, AWorkoutThatIsNoFileIsToldAndTheOneBeforeStaysChosen) {
  ListTuesday();
  fs::remove("workouts/Tuesday.RPV");
  fs::create_directory("workouts/Tuesday.RPV");
  Choose(1);
  EXPECT_THAT(dialogs.asked, SizeIs(1));
  EXPECT_EQ(state.WorkoutFileName, "Monday.RPV");
  EXPECT_EQ(screen.workouts.selected, 0);
}

TEST_F(WorkoutEditing, AWorkoutThatCannotBeReadIsToldAndTheOneBeforeStaysChosen) {
  ListTuesday();
  const UnreadableFile unreadable("workouts/Tuesday.RPV");
  EXPECT_THROW(Choose(1), FileError);
  EXPECT_EQ(state.WorkoutFileName, "Monday.RPV");
  EXPECT_EQ(screen.workouts.selected, 0);
}

TEST_F(WorkoutEditing, GarbageIsToldAndCanBeLeftAgain) {
  const Bytes garbage(kWorkoutFileSize, 0x7F);
  AddNewExercise("Squat");
  ListTuesday(garbage);
  Choose(1);
  EXPECT_THAT(dialogs.asked, ElementsAre("message|Repvolta|Tuesday.RPV seems to be damaged: it "
                                         "holds numbers that no workout can have."));
  EXPECT_EQ(state.WorkoutFileName, "Tuesday.RPV");
  Choose(0);
  EXPECT_THAT(screen.exercises.rows, ElementsAre("Squat"));
  EXPECT_EQ(GetFile("workouts/Tuesday.RPV"), garbage);
}

TEST_F(WorkoutEditing, AChosenWorkoutCanBeEditedBeforeItIsLoaded) {
  ListTuesday(Bytes(kWorkoutFileSize, 0x7F));
  state.WorkoutFileName = "";
  screen.EnableWorkoutControls();
  bool enabled = false;
  dialogs.whenAsked = [&] { enabled = screen.workoutCanBeEdited; };
  Choose(1);
  EXPECT_THAT(dialogs.asked, SizeIs(1));
  EXPECT_TRUE(enabled);
}

TEST_F(WorkoutEditing, TimesThatCannotBeAddedUpAreToldWhenTheWorkoutIsChosen) {
  ExerciseSlots workout;
  for (const int slot : {0, 1}) {
    workout[slot].ExerciseName = "Run";
    workout[slot].TotalMusicTime = 32767;
  }
  ListTuesday(EncodeWorkout(workout));
  EXPECT_THAT([this] { Choose(1); }, ThrowsMessage<std::overflow_error>("The number is too large"));
}

TEST_F(WorkoutEditing, AnEmptyFolderLeavesNothingToChoose) {
  fs::remove("workouts/Monday.RPV");
  ListWorkouts(editor);
  EXPECT_THAT(screen.workouts.rows, IsEmpty());
  EXPECT_EQ(state.NumberOfWorkouts, 0);
}

TEST_F(WorkoutEditing, TwoThousandWorkoutsAreListed) {
  for (int i = 0; i < 2000; ++i) PutFile("workouts/W" + std::to_string(i) + ".RPV", "");
  ListWorkouts(editor);
  EXPECT_EQ(screen.workouts.rows.size(), 2001U);
}

}  // namespace
}  // namespace repvolta
