#include "support/FormFixture.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class WorkoutEditing : public FormFixture {
 protected:
  QComboBox& Box() { return Get<QComboBox>("WorkoutDropBox"); }

  std::vector<std::string> BoxNames() {
    std::vector<std::string> names;
    for (int i = 0; i < Box().count(); ++i) names.push_back(Box().itemText(i).toStdString());
    return names;
  }

  void Create(const std::string& name) {
    dialogs.answers = {name};
    Click("CreateNewWorkoutButton");
  }

  void Choose(int index) {
    Box().setFocus();
    const int steps = index - Box().currentIndex();
    for (int i = 0; i < std::abs(steps); ++i) {
      QTest::keyClick(&Box(), steps > 0 ? Qt::Key_Down : Qt::Key_Up);
    }
  }

  /// As a person does who opens the list and picks the entry that is selected already.
  void ChooseAgain() { emit Box().activated(Box().currentIndex()); }
};

TEST_F(WorkoutEditing, CreatingAsksForTheName) {
  Create("");
  EXPECT_THAT(dialogs.asked, ElementsAre("ask|New Workout|Enter a name for the new Workout"));
}

TEST_F(WorkoutEditing, CreatingStopsWithoutAName) {
  Create("   ");
  EXPECT_EQ(state.WorkoutFileName, "Monday.RPV");
  EXPECT_THAT(BoxNames(), ElementsAre("Monday.RPV"));
}

TEST_F(WorkoutEditing, ANewWorkoutIsAddedAtTheEndAndSelected) {
  Create("  Friday  ");
  EXPECT_THAT(BoxNames(), ElementsAre("Monday.RPV", "Friday.RPV"));
  EXPECT_EQ(Box().currentIndex(), 1);
  EXPECT_EQ(state.WorkoutFileName, "Friday.RPV");
  EXPECT_EQ(state.NumberOfWorkouts, 2);
}

TEST_F(WorkoutEditing, ANewWorkoutIsSavedWithFiveInitialisedExercises) {
  AddExercise("Squat").SetValue1[0] = 7;
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
  EXPECT_THAT(Rows("ExerciseList"), IsEmpty());
}

TEST_F(WorkoutEditing, CreatingShowsTheWorkoutTab) {
  OpenTab(2);
  dialogs.answers = {"Friday"};
  Get<QAbstractButton>("CreateNewWorkoutButton").click();
  EXPECT_EQ(Get<QTabWidget>("SSTab1").currentIndex(), 0);
}

TEST_F(WorkoutEditing, ANameThatIsUsedReplacesTheWorkoutAndIsListedTwice) {
  AddExercise("Squat");
  Create("Monday");
  EXPECT_THAT(BoxNames(), ElementsAre("Monday.RPV", "Monday.RPV"));
  EXPECT_EQ(Box().currentIndex(), 1);
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
    EXPECT_THAT(BoxNames(), ElementsAre("Monday.RPV")) << name;
    EXPECT_EQ(state.WorkoutFileName, "Monday.RPV") << name;
  }
  EXPECT_EQ(std::distance(fs::directory_iterator("workouts"), fs::directory_iterator()), 1);
}

TEST_F(WorkoutEditing, NamesWithAccentsAndJapaneseAreFileNames) {
  for (const std::string name : {"Übung é", "月曜日", "<b>bold"}) {
    Create(name);
    EXPECT_TRUE(fs::exists("workouts/" + name + ".RPV")) << name;
    EXPECT_EQ(Box().currentText().toStdString(), name + ".RPV");
  }
}

TEST_F(WorkoutEditing, AWorkoutThatCannotBeSavedIsNotCreated) {
  AddExercise("Squat");
  BlockWorkouts();
  Create("Friday");
  ASSERT_THAT(dialogs.asked, SizeIs(2));
  EXPECT_THAT(dialogs.asked[1], HasSubstr("message|Repvolta|workouts/Friday.RPV could not be"));
  EXPECT_EQ(state.WorkoutFileName, "Monday.RPV");
  EXPECT_EQ(state.Workout[0].ExerciseName.Text(), "Squat");
  EXPECT_THAT(BoxNames(), ElementsAre("Monday.RPV"));
  EXPECT_EQ(Box().currentIndex(), 0);
  EXPECT_THAT(Rows("ExerciseList"), ElementsAre("Squat"));
}

TEST_F(WorkoutEditing, ADefaultTimeThatDoesNotFitCreatesNothing) {
  state.Settings.DefaultExerciseTime = 600;
  Create("Friday");
  ASSERT_THAT(dialogs.asked, SizeIs(2));
  EXPECT_EQ(dialogs.asked[1],
            "message|Repvolta|The workout could not be created.\rThe number is too large");
  EXPECT_FALSE(fs::exists("workouts/Friday.RPV"));
  EXPECT_EQ(state.WorkoutFileName, "Monday.RPV");
}

TEST_F(WorkoutEditing, DeletingAsksWithTheFileName) {
  dialogs.answers = {"Cancel"};
  Click("DeleteSelectedWorkoutButton");
  EXPECT_THAT(
      dialogs.asked,
      ElementsAre("confirm|Delete Workout|Are you SURE you want to delete workout\rMonday.RPV"));
  EXPECT_EQ(state.WorkoutFileName, "Monday.RPV");
  EXPECT_TRUE(fs::exists("workouts/Monday.RPV"));
}

TEST_F(WorkoutEditing, DeletingTakesTheFileOfTheNameInTheCurrentDirectory) {
  PutFile("Monday.RPV", "beside");
  dialogs.answers = {"OK"};
  Click("DeleteSelectedWorkoutButton");
  EXPECT_FALSE(fs::exists("Monday.RPV"));
  EXPECT_TRUE(fs::exists("workouts/Monday.RPV"));
  EXPECT_EQ(state.WorkoutFileName, "");
  EXPECT_EQ(Box().currentIndex(), -1);
}

TEST_F(WorkoutEditing, DeletingListsTheWorkoutsAnew) {
  PutFile("Monday.RPV", "beside");
  PutFile("workouts/Late.RPV", EncodeWorkout({}));
  dialogs.answers = {"OK"};
  Click("DeleteSelectedWorkoutButton");
  EXPECT_THAT(BoxNames(), ElementsAre("Late.RPV", "Monday.RPV"));
}

TEST_F(WorkoutEditing, DeletingLeavesTheWorkoutInMemoryAndOnTheScreen) {
  AddExercise("Squat");
  PutFile("Monday.RPV", "beside");
  dialogs.answers = {"OK"};
  Click("DeleteSelectedWorkoutButton");
  EXPECT_EQ(state.Workout[0].ExerciseName.Text(), "Squat");
  EXPECT_THAT(Rows("ExerciseList"), ElementsAre("Squat"));
}

TEST_F(WorkoutEditing, AFileThatIsNotThereIsToldAndNothingChanges) {
  dialogs.answers = {"OK"};
  Click("DeleteSelectedWorkoutButton");
  ASSERT_THAT(dialogs.asked, SizeIs(2));
  EXPECT_EQ(dialogs.asked[1],
            "message|Repvolta|Monday.RPV could not be deleted: No such file or directory");
  EXPECT_EQ(state.WorkoutFileName, "Monday.RPV");
}

TEST_F(WorkoutEditing, AReadOnlyFileIsNotDeleted) {
  PutFile("Monday.RPV", "beside");
  fs::permissions("Monday.RPV", fs::perms::owner_read);
  dialogs.answers = {"OK"};
  Click("DeleteSelectedWorkoutButton");
  EXPECT_EQ(dialogs.asked.back(),
            "message|Repvolta|Monday.RPV could not be deleted: it is read-only");
  EXPECT_TRUE(fs::exists("Monday.RPV"));
}

TEST_F(WorkoutEditing, ChoosingLoadsTheWorkout) {
  AddExercise("Squat");
  ListWorkouts({"Tuesday"});
  form->SelectWorkout(0);
  Choose(1);
  EXPECT_EQ(state.WorkoutFileName, "Tuesday.RPV");
  EXPECT_THAT(Rows("ExerciseList"), IsEmpty());
  Choose(0);
  EXPECT_EQ(state.WorkoutFileName, "Monday.RPV");
  EXPECT_THAT(Rows("ExerciseList"), ElementsAre("Squat"));
}

TEST_F(WorkoutEditing, ChoosingByHandLoadsOnce) {
  ListWorkouts({"Tuesday"});
  form->SelectWorkout(0);
  fs::remove("workouts/Tuesday.RPV");
  Box().setFocus();
  QTest::keyClick(&Box(), Qt::Key_Down);
  QApplication::processEvents();
  EXPECT_THAT(dialogs.asked, ElementsAre("message|Repvolta|Error: Workout file not found"));
}

TEST_F(WorkoutEditing, ChoosingTheSelectedWorkoutLoadsItAgain) {
  ExerciseSlots changed;
  changed[0].ExerciseName = "Row";
  PutFile("workouts/Monday.RPV", EncodeWorkout(changed));
  ChooseAgain();
  EXPECT_THAT(Rows("ExerciseList"), ElementsAre("Row"));
}

TEST_F(WorkoutEditing, AChoiceByAnAssistiveToolLoadsTheWorkout) {
  ListWorkouts({"Tuesday"});
  form->SelectWorkout(0);
  Box().setCurrentIndex(1);
  QApplication::processEvents();
  EXPECT_EQ(state.WorkoutFileName, "Tuesday.RPV");
}

TEST_F(WorkoutEditing, WhatTheProgramSelectsIsNoChoice) {
  ListWorkouts({"Tuesday"});
  form->SelectWorkout(1);
  QApplication::processEvents();
  EXPECT_EQ(state.WorkoutFileName, "Monday.RPV");
}

TEST_F(WorkoutEditing, NoWorkoutCanBeChosenToo) {
  Box().setCurrentIndex(-1);
  QApplication::processEvents();
  EXPECT_EQ(state.WorkoutFileName, "");
  EXPECT_FALSE(Get<QWidget>("AddExerciseButton").isEnabled());
}

TEST_F(WorkoutEditing, ALoadSelectsTheFirstExercise) {
  AddExercise("Squat");
  AddExercise("Row");
  ClickRow("ExerciseList", 1);
  ChooseAgain();
  EXPECT_EQ(List("ExerciseList").SelectedRow(), 0);
}

TEST_F(WorkoutEditing, AVanishedWorkoutIsToldAndTheOneBeforeStaysChosen) {
  AddExercise("Squat");
  ListWorkouts({"Tuesday"});
  form->SelectWorkout(0);
  fs::remove("workouts/Tuesday.RPV");
  Choose(1);
  EXPECT_THAT(dialogs.asked, ElementsAre("message|Repvolta|Error: Workout file not found"));
  EXPECT_EQ(state.WorkoutFileName, "Monday.RPV");
  EXPECT_EQ(Box().currentIndex(), 0);
  EXPECT_THAT(Rows("ExerciseList"), ElementsAre("Squat"));
}

TEST_F(WorkoutEditing, AWorkoutThatIsNoFileIsToldAndTheOneBeforeStaysChosen) {
  ListWorkouts({"Tuesday"});
  form->SelectWorkout(0);
  fs::remove("workouts/Tuesday.RPV");
  fs::create_directory("workouts/Tuesday.RPV");
  Choose(1);
  EXPECT_THAT(dialogs.asked, SizeIs(1));
  EXPECT_EQ(state.WorkoutFileName, "Monday.RPV");
}

TEST_F(WorkoutEditing, GarbageIsToldAndCanBeLeftAgain) {
  AddExercise("Squat");
  PutFile("workouts/Tuesday.RPV", Bytes(kWorkoutFileSize, 0x7F));
  repvolta::ListWorkouts(form->GetEditor());
  form->SelectWorkout(0);
  Choose(1);
  EXPECT_THAT(dialogs.asked, ElementsAre("message|Repvolta|Tuesday.RPV seems to be damaged: it "
                                         "holds numbers that no workout can have."));
  EXPECT_EQ(state.WorkoutFileName, "Tuesday.RPV");
  Choose(0);
  EXPECT_THAT(Rows("ExerciseList"), ElementsAre("Squat"));
  EXPECT_EQ(GetFile("workouts/Tuesday.RPV"), Bytes(kWorkoutFileSize, 0x7F));
}

TEST_F(WorkoutEditing, AChosenWorkoutCanBeEditedBeforeItIsLoaded) {
  PutFile("workouts/Tuesday.RPV", Bytes(kWorkoutFileSize, 0x7F));
  repvolta::ListWorkouts(form->GetEditor());
  state.WorkoutFileName = "";
  form->EnableWorkoutControls();
  bool enabled = false;
  dialogs.whenAsked = [&] { enabled = Get<QWidget>("AddExerciseButton").isEnabled(); };
  Box().setCurrentIndex(1);
  QApplication::processEvents();
  EXPECT_THAT(dialogs.asked, SizeIs(1));
  EXPECT_TRUE(enabled);
}

TEST_F(WorkoutEditing, TimesThatCannotBeAddedUpAreToldWhenTheWorkoutIsChosen) {
  ExerciseSlots workout;
  for (const int slot : {0, 1}) {
    workout[slot].ExerciseName = "Run";
    workout[slot].TotalMusicTime = 32767;
  }
  PutFile("workouts/Tuesday.RPV", EncodeWorkout(workout));
  repvolta::ListWorkouts(form->GetEditor());
  form->SelectWorkout(0);
  Choose(1);
  EXPECT_THAT(dialogs.asked, ElementsAre("message|Repvolta|The workout cannot be shown as a "
                                         "whole.\rThe number is too large"));
}

TEST_F(WorkoutEditing, TheKeyForANewWorkoutWorksFromAnywhereInTheTab) {
  form->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
  for (const char* control : {"ExitButton", "ExerciseList"}) {
    dialogs.asked.clear();
    dialogs.answers = {""};
    Get<QWidget>(control).setFocus();
    QTest::keyClick(&Get<QWidget>(control), Qt::Key_N, Qt::ControlModifier);
    EXPECT_THAT(dialogs.asked, SizeIs(1)) << control;
  }
}

TEST_F(WorkoutEditing, AnEmptyFolderLeavesTheBoxEmptyAndSaysWhatToDo) {
  fs::remove("workouts/Monday.RPV");
  repvolta::ListWorkouts(form->GetEditor());
  EXPECT_EQ(Box().count(), 0);
  EXPECT_EQ(state.NumberOfWorkouts, 0);
  EXPECT_EQ(Box().placeholderText(), "No workouts yet: create one.");
}

TEST_F(WorkoutEditing, TwoThousandWorkoutsAreListed) {
  for (int i = 0; i < 2000; ++i) PutFile("workouts/W" + std::to_string(i) + ".RPV", "");
  repvolta::ListWorkouts(form->GetEditor());
  EXPECT_EQ(Box().count(), 2001);
}

}  // namespace
}  // namespace repvolta
