#include "support/Accessibility.h"
#include "support/FormFixture.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class WorkoutScreen : public FormFixture {};

TEST_F(WorkoutScreen, ListsNamesSummariesAndTheTotal) {
  ExerciseRecord& squat = AddExercise("Squat");
  squat.NumberOfSets = 3;
  squat.TargetExerciseTime = 320;
  squat.TotalMusicTime = 375;
  squat.RandomMusic = kTrue;
  AddExercise("Row").TotalMusicTime = 59;
  form->UpdateWorkoutScreen();
  EXPECT_THAT(Rows("ExerciseList"), ElementsAre("Squat", "Row"));
  EXPECT_THAT(Rows("ExerciseSummaryList"),
              ElementsAre("03 sets, 05:20 Exercise, 06:15 Music, Random Music",
                          "00 sets, 05:00 Exercise, 00:59 Music"));
  EXPECT_EQ(Text("TotalWorkoutMusicTimeLabel"), "07:14");
}

TEST_F(WorkoutScreen, StoresNamesTrimmed) {
  AddExercise("Squat").ExerciseName = "  Squat  ";
  form->UpdateWorkoutScreen();
  EXPECT_EQ(state.Workout[0].ExerciseName.Text(), "Squat");
}

TEST_F(WorkoutScreen, ABlankNameIsNotListedButItsSummaryIs) {
  AddExercise("Squat").ExerciseName = "   ";
  form->UpdateWorkoutScreen();
  EXPECT_THAT(Rows("ExerciseList"), IsEmpty());
  EXPECT_EQ(Rows("ExerciseSummaryList").size(), 1U);
}

TEST_F(WorkoutScreen, SelectsTheCurrentExercise) {
  AddExercise("Squat");
  AddExercise("Row");
  state.CurrentExercise = 1;
  form->UpdateWorkoutScreen();
  EXPECT_EQ(List("ExerciseList").SelectedRow(), 1);
  EXPECT_EQ(List("ExerciseSummaryList").SelectedRow(), 1);
}

TEST_F(WorkoutScreen, ATotalThatDoesNotFitThrowsBehindTheLists) {
  AddExercise("Squat").TotalMusicTime = 32767;
  AddExercise("Row").TotalMusicTime = 0;
  state.Workout[1].TotalMusicTime = 1;
  EXPECT_THROW(form->UpdateWorkoutScreen(), std::overflow_error);
  EXPECT_THAT(Rows("ExerciseList"), ElementsAre("Squat", "Row"));
}

TEST_F(WorkoutScreen, ShowingIsNoChoice) {
  AddExercise("Squat");
  const ExerciseSlots before = state.Workout;
  form->UpdateWorkoutScreen();
  EXPECT_EQ(state.Workout, before);
  EXPECT_FALSE(state.ScreenUpdating);
}

TEST_F(WorkoutScreen, AFileOfAnotherSizeIsToldByALineWithoutABox) {
  auto& line = Get<QLabel>("WorkoutFileLabel");
  EXPECT_FALSE(line.isVisible());
  const std::vector<std::pair<std::size_t, std::string>> files = {
      {0, "0 bytes instead of 266240; what is missing was filled up with blanks."},
      {300000, "300000 bytes instead of 266240; what is too much was ignored."}};
  for (const auto& [size, text] : files) {
    PutFile("workouts/Monday.RPV", std::string(size, ' '));
    Load("Monday.RPV");
    EXPECT_TRUE(line.isVisible());
    EXPECT_EQ(line.text().toStdString(), "Monday.RPV has " + text);
    EXPECT_EQ(HeardName(line), "Monday.RPV has " + text);
  }
  EXPECT_THAT(dialogs.asked, IsEmpty());
}

TEST_F(WorkoutScreen, TheLineGoesWithTheNextSave) {
  PutFile("workouts/Monday.RPV", "");
  Load("Monday.RPV");
  dialogs.answers = {"Squat"};
  Click("AddExerciseButton");
  EXPECT_FALSE(Get<QLabel>("WorkoutFileLabel").isVisible());
}

TEST_F(WorkoutScreen, TheLineGoesAlsoWhenTheSaveShowsOnlyTheExercise) {
  AddExercise("Squat");
  Bytes half = GetFile("workouts/Monday.RPV");
  half.resize(6000);
  PutFile("workouts/Monday.RPV", half);
  Load("Monday.RPV");
  OpenTab(1);
  EXPECT_FALSE(Get<QLabel>("WorkoutFileLabel").isHidden());
  Click("UnitsSelection_1");
  EXPECT_TRUE(Get<QLabel>("WorkoutFileLabel").isHidden());
}

TEST_F(WorkoutScreen, TheLineGoesWithItsWorkout) {
  ListWorkouts({"Tuesday"});
  PutFile("workouts/Monday.RPV", "");
  Load("Monday.RPV");
  Load("Tuesday.RPV");
  EXPECT_FALSE(Get<QLabel>("WorkoutFileLabel").isVisible());
}

TEST_F(WorkoutScreen, AnEmptyListSaysWhatToDo) {
  EXPECT_EQ(List("ExerciseList").Hint(), "No exercises yet: add one with \"Add New Exercise\".");
  state.WorkoutFileName = "";
  form->EnableWorkoutControls();
  EXPECT_EQ(List("ExerciseList").Hint(), "Create or choose a workout first.");
}

/// The workouts "Monday" with two exercises, which is loaded, and "Tuesday" with none.
class WorkoutControls : public WorkoutScreen {
 protected:
  WorkoutControls() {
    AddExercise("Squat");
    AddExercise("Row");
    ListWorkouts({"Tuesday"});
    form->SelectWorkout(0);
  }

  QComboBox& Box() { return Get<QComboBox>("WorkoutDropBox"); }

  void Press(Qt::Key key) {
    Box().setFocus();
    QTest::keyClick(&Box(), key);
  }
};

TEST_F(WorkoutControls, TheListsSelectTogether) {
  ClickRow("ExerciseList", 1);
  EXPECT_EQ(List("ExerciseSummaryList").SelectedRow(), 1);
  ClickRow("ExerciseSummaryList", 0);
  EXPECT_EQ(List("ExerciseList").SelectedRow(), 0);
}

TEST_F(WorkoutControls, TheListsDoNotFollowWhileTheScreenIsUpdating) {
  state.ScreenUpdating = true;
  List("ExerciseList").SelectRow(1);
  EXPECT_EQ(List("ExerciseSummaryList").SelectedRow(), 0);
}

TEST_F(WorkoutControls, ADoubleClickOnEitherListOpensTheExercise) {
  for (const char* list : {"ExerciseList", "ExerciseSummaryList"}) {
    OpenTab(0);
    state.CurrentExercise = 0;
    form->UpdateWorkoutScreen();
    DoubleClickRow(list, 1);
    EXPECT_EQ(Get<QTabWidget>("SSTab1").currentIndex(), 1) << list;
    EXPECT_EQ(Text("ExerciseNameLabel"), "Row") << list;
  }
}

TEST_F(WorkoutControls, TheFocusSelectsNoRow) {
  List("ExerciseList").SelectRow(-1);
  List("ExerciseList").setFocus();
  Click("EditExerciseNameButton");
  Click("RemoveExerciseButton");
  Click("MoveUpExerciseListButton");
  EXPECT_THAT(dialogs.asked, IsEmpty());
}

TEST_F(WorkoutControls, TheNewExerciseIsSelectedInBothLists) {
  dialogs.answers = {"Press"};
  Click("AddExerciseButton");
  EXPECT_THAT(Rows("ExerciseList"), ElementsAre("Squat", "Row", "Press"));
  EXPECT_EQ(List("ExerciseList").SelectedRow(), 2);
  EXPECT_EQ(List("ExerciseSummaryList").SelectedRow(), 2);
}

TEST_F(WorkoutControls, ANameIsShownAsItIs) {
  dialogs.answers = {"<b>R&B</b> スクワット"};
  Click("AddExerciseButton");
  EXPECT_EQ(Rows("ExerciseList").back(), "<b>R&B</b> スクワット");
  OpenTab(1);
  EXPECT_EQ(Text("ExerciseNameLabel"), "<b>R&B</b> スクワット");
  EXPECT_EQ(Get<QLabel>("ExerciseNameLabel").textFormat(), Qt::PlainText);
}

TEST_F(WorkoutControls, CreatingShowsTheNewWorkoutOnItsTab) {
  OpenTab(2);
  dialogs.answers = {"<b>月曜日"};
  Get<QAbstractButton>("CreateNewWorkoutButton").click();
  EXPECT_EQ(Get<QTabWidget>("SSTab1").currentIndex(), 0);
  EXPECT_EQ(Box().currentText(), "<b>月曜日.RPV");
  EXPECT_THAT(Rows("ExerciseList"), IsEmpty());
}

TEST_F(WorkoutControls, AChoiceByKeyLoadsTheWorkout) {
  Press(Qt::Key_Down);
  EXPECT_EQ(state.WorkoutFileName, "Tuesday.RPV");
  EXPECT_THAT(Rows("ExerciseList"), IsEmpty());
  Press(Qt::Key_Up);
  EXPECT_EQ(state.WorkoutFileName, "Monday.RPV");
  EXPECT_THAT(Rows("ExerciseList"), ElementsAre("Squat", "Row"));
}

TEST_F(WorkoutControls, AChoiceByKeyLoadsOnce) {
  std::filesystem::remove("workouts/Tuesday.RPV");
  Press(Qt::Key_Down);
  QApplication::processEvents();
  EXPECT_THAT(dialogs.asked, ElementsAre("message|Repvolta|Error: Workout file not found"));
  EXPECT_EQ(Box().currentIndex(), 0);
}

TEST_F(WorkoutControls, ChoosingTheSelectedWorkoutLoadsItAgain) {
  ExerciseSlots changed;
  changed[0].ExerciseName = "Press";
  PutFile("workouts/Monday.RPV", EncodeWorkout(changed));
  // As a person does who opens the list and picks the entry that is selected already.
  Q_EMIT Box().activated(Box().currentIndex());
  EXPECT_THAT(Rows("ExerciseList"), ElementsAre("Press"));
}

TEST_F(WorkoutControls, AChoiceByAnAssistiveToolLoadsTheWorkout) {
  Box().setCurrentIndex(1);
  QApplication::processEvents();
  EXPECT_EQ(state.WorkoutFileName, "Tuesday.RPV");
}

TEST_F(WorkoutControls, WhatTheProgramSelectsIsNoChoice) {
  form->SelectWorkout(1);
  QApplication::processEvents();
  EXPECT_EQ(state.WorkoutFileName, "Monday.RPV");
}

TEST_F(WorkoutControls, NoWorkoutCanBeChosenToo) {
  Box().setCurrentIndex(-1);
  QApplication::processEvents();
  EXPECT_EQ(state.WorkoutFileName, "");
  EXPECT_FALSE(Get<QWidget>("AddExerciseButton").isEnabled());
}

TEST_F(WorkoutControls, AChosenWorkoutCanBeEditedBeforeItIsLoaded) {
  PutFile("workouts/Tuesday.RPV", Bytes(kWorkoutFileSize, 0x7F));
  state.WorkoutFileName = "";
  form->EnableWorkoutControls();
  bool enabled = false;
  dialogs.whenAsked = [&] { enabled = Get<QWidget>("AddExerciseButton").isEnabled(); };
  Box().setCurrentIndex(1);
  QApplication::processEvents();
  EXPECT_TRUE(enabled);
}

TEST_F(WorkoutControls, AnEmptyFolderLeavesTheBoxEmptyAndSaysWhatToDo) {
  for (const char* name : {"Monday", "Tuesday"}) {
    std::filesystem::remove(std::string("workouts/") + name + ".RPV");
  }
  repvolta::ListWorkouts(form->GetEditor());
  EXPECT_EQ(Box().count(), 0);
  EXPECT_EQ(Box().placeholderText(), "No workouts yet: create one.");
}

TEST_F(WorkoutControls, TheKeyForANewWorkoutWorksFromAnywhereInTheTab) {
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

TEST_F(WorkoutControls, ACommandThatFailsSaysWhatDidNotHappen) {
  state.Settings.DefaultExerciseTime = 600;
  dialogs.answers = {"Press", "Friday"};
  Click("AddExerciseButton");
  EXPECT_EQ(dialogs.asked.back(),
            "message|Repvolta|The exercise could not be added.\rThe number is too large");
  Click("CreateNewWorkoutButton");
  EXPECT_EQ(dialogs.asked.back(),
            "message|Repvolta|The workout could not be created.\rThe number is too large");
}

TEST_F(WorkoutControls, AChoiceThatCannotBeShownAsAWholeSaysSo) {
  ExerciseSlots workout;
  for (const int slot : {0, 1}) {
    workout[slot].ExerciseName = "Run";
    workout[slot].TotalMusicTime = 32767;
  }
  PutFile("workouts/Tuesday.RPV", EncodeWorkout(workout));
  Press(Qt::Key_Down);
  EXPECT_THAT(dialogs.asked, ElementsAre("message|Repvolta|The workout cannot be shown as a "
                                         "whole.\rThe number is too large"));
}

}  // namespace
}  // namespace repvolta
