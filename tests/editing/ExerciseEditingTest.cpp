#include "support/FormFixture.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class ExerciseEditing : public FormFixture {
 protected:
  void Add(const std::string& name) {
    dialogs.answers = {name};
    Click("AddExerciseButton");
  }

  /// The names in the workout file, as far as they are used.
  static std::vector<std::string> SavedNames() {
    std::vector<std::string> names;
    for (const ExerciseRecord& exercise : Saved()) {
      if (exercise.ExerciseName.IsBlank()) break;
      names.push_back(exercise.ExerciseName.Text());
    }
    return names;
  }
};

TEST_F(ExerciseEditing, AddingTakesTheChosenNameAndSavesIt) {
  Add("Squat");
  EXPECT_THAT(dialogs.asked, ElementsAre("exercise"));
  EXPECT_THAT(SavedNames(), ElementsAre("Squat"));
  EXPECT_EQ(state.NumberOfExercises, 1);
}

TEST_F(ExerciseEditing, TheNewExerciseIsSelectedInBothLists) {
  Add("Squat");
  Add("Row");
  EXPECT_THAT(Rows("ExerciseList"), ElementsAre("Squat", "Row"));
  EXPECT_EQ(List("ExerciseList").SelectedRow(), 1);
  EXPECT_EQ(List("ExerciseSummaryList").SelectedRow(), 1);
  EXPECT_EQ(state.CurrentExercise, 1);
}

TEST_F(ExerciseEditing, ANewExerciseHasTheDefaults) {
  state.Workout[0].NumberOfSets = 2;
  state.Workout[0].SetType = kUserDefined;
  Add("Squat");
  EXPECT_EQ(Saved()[0].NumberOfSets, 0);
  EXPECT_EQ(Saved()[0].SetType, kWeightAndReps);
  EXPECT_EQ(Saved()[0].TargetExerciseTime, 300);
}

TEST_F(ExerciseEditing, NothingIsAddedWithoutAName) {
  for (const char* name : {"", "   "}) {
    Add(name);
    EXPECT_EQ(state.NumberOfExercises, 0);
    EXPECT_THAT(Rows("ExerciseList"), IsEmpty());
  }
}

TEST_F(ExerciseEditing, ASixthExerciseIsRefusedWithoutOpeningTheDialog) {
  for (int i = 0; i < 5; ++i) AddExercise("E" + std::to_string(i));
  Click("AddExerciseButton");
  EXPECT_THAT(dialogs.asked,
              ElementsAre("message|Repvolta|Maxmimum number of Exercises reached. Cannot add any "
                          "more."));
  EXPECT_EQ(state.NumberOfExercises, 5);
}

TEST_F(ExerciseEditing, ADefaultTimeThatDoesNotFitAddsNothing) {
  state.Settings.DefaultExerciseTime = 600;
  Add("Squat");
  EXPECT_EQ(dialogs.asked.back(),
            "message|Repvolta|The exercise could not be added.\rThe number is too large");
  EXPECT_EQ(state.NumberOfExercises, 0);
  EXPECT_THAT(Rows("ExerciseList"), IsEmpty());
}

TEST_F(ExerciseEditing, WhatCannotBeSavedIsToldAndStaysInMemoryAndOnTheScreen) {
  BlockWorkouts();
  Add("Squat");
  ASSERT_THAT(dialogs.asked, SizeIs(2));
  EXPECT_THAT(dialogs.asked[1], HasSubstr("message|Repvolta|workouts/Monday.RPV could not be"));
  EXPECT_EQ(state.Workout[0].ExerciseName.Text(), "Squat");
  EXPECT_THAT(Rows("ExerciseList"), ElementsAre("Squat"));
  EXPECT_FALSE(state.ScreenUpdating);
}

TEST_F(ExerciseEditing, ANameIsShownAsItIs) {
  Add("<b>R&B</b> スクワット");
  EXPECT_THAT(Rows("ExerciseList"), ElementsAre("<b>R&B</b> スクワット"));
  OpenTab(1);
  EXPECT_EQ(Text("ExerciseNameLabel"), "<b>R&B</b> スクワット");
  EXPECT_EQ(Get<QLabel>("ExerciseNameLabel").textFormat(), Qt::PlainText);
}

TEST_F(ExerciseEditing, RenamingAsksWithTheOldNameAndSavesTheNewOne) {
  AddExercise("Squat");
  AddExercise("Row");
  ClickRow("ExerciseList", 1);
  dialogs.answers = {"Press"};
  Click("EditExerciseNameButton");
  EXPECT_THAT(dialogs.asked, ElementsAre("ask|Edit Exercise Name|Enter a new Exercise Name|Row"));
  EXPECT_THAT(SavedNames(), ElementsAre("Squat", "Press"));
  EXPECT_THAT(Rows("ExerciseList"), ElementsAre("Squat", "Press"));
  EXPECT_EQ(List("ExerciseList").SelectedRow(), 1);
}

TEST_F(ExerciseEditing, RenamingStopsWithoutAnAnswer) {
  AddExercise("Squat");
  for (const char* answer : {"", "  "}) {
    dialogs.answers = {answer};
    Click("EditExerciseNameButton");
    EXPECT_THAT(SavedNames(), ElementsAre("Squat"));
  }
}

TEST_F(ExerciseEditing, ALongNameIsCutAtTheSizeOfItsField) {
  AddExercise("Squat");
  dialogs.answers = {std::string(300, 'x')};
  Click("EditExerciseNameButton");
  EXPECT_THAT(SavedNames(), ElementsAre(std::string(256, 'x')));
}

TEST_F(ExerciseEditing, RenamingDoesNothingWithoutExercises) {
  Click("EditExerciseNameButton");
  EXPECT_THAT(dialogs.asked, IsEmpty());
}

TEST_F(ExerciseEditing, NothingIsAskedWhenNoRowIsSelected) {
  AddExercise("Squat");
  List("ExerciseList").SelectRow(-1);
  // The focus makes a row current, which is no choice.
  List("ExerciseList").setFocus();
  Click("EditExerciseNameButton");
  Click("RemoveExerciseButton");
  Click("MoveUpExerciseListButton");
  EXPECT_THAT(dialogs.asked, IsEmpty());
}

TEST_F(ExerciseEditing, RemovingAsksWithTheName) {
  AddExercise("Squat");
  dialogs.answers = {"Cancel"};
  Click("RemoveExerciseButton");
  EXPECT_THAT(
      dialogs.asked,
      ElementsAre("confirm|Remove Exercise|Are you SURE you want to DELETE exercise:\rSquat"));
  EXPECT_THAT(SavedNames(), ElementsAre("Squat"));
}

TEST_F(ExerciseEditing, RemovingMovesTheLaterExercisesUpWhole) {
  AddExercise("Squat");
  AddExercise("Row").SetValue1[4] = 9;
  AddExercise("Press");
  ClickRow("ExerciseList", 0);
  dialogs.answers = {"OK"};
  Click("RemoveExerciseButton");
  EXPECT_THAT(SavedNames(), ElementsAre("Row", "Press"));
  EXPECT_EQ(Saved()[0].SetValue1[4], 9);
  EXPECT_EQ(state.NumberOfExercises, 2);
}

TEST_F(ExerciseEditing, TheRowThatTookTheRemovedOnesPlaceIsSelected) {
  AddExercise("Squat");
  AddExercise("Row");
  AddExercise("Press");
  ClickRow("ExerciseList", 1);
  dialogs.answers = {"OK", "OK"};
  Click("RemoveExerciseButton");
  EXPECT_EQ(List("ExerciseList").SelectedRow(), 1);
  Click("RemoveExerciseButton");
  EXPECT_EQ(List("ExerciseList").SelectedRow(), 0);
}

TEST_F(ExerciseEditing, RemovingTheLastOneClearsItsSlot) {
  AddExercise("Squat");
  dialogs.answers = {"OK"};
  Click("RemoveExerciseButton");
  EXPECT_THAT(SavedNames(), IsEmpty());
  EXPECT_EQ(state.NumberOfExercises, 0);
  EXPECT_THAT(Rows("ExerciseSummaryList"), IsEmpty());
}

TEST_F(ExerciseEditing, RemovingOneOfFiveBlanksTheSlotBehindTheLast) {
  for (int i = 0; i < 5; ++i) AddExercise("E" + std::to_string(i));
  state.Workout[5].ExerciseName = "hidden";
  ClickRow("ExerciseList", 0);
  dialogs.answers = {"OK"};
  Click("RemoveExerciseButton");
  EXPECT_TRUE(state.Workout[5].ExerciseName.IsBlank());
  EXPECT_EQ(state.NumberOfExercises, 4);
}

TEST_F(ExerciseEditing, MovingUpAsksWithTheName) {
  AddExercise("Squat");
  AddExercise("Row");
  ClickRow("ExerciseList", 1);
  dialogs.answers = {"Cancel"};
  Click("MoveUpExerciseListButton");
  EXPECT_THAT(dialogs.asked,
              ElementsAre("confirm|Move Exercise|Are you SURE you want to move the exercise up the "
                          "list?:\rRow"));
  EXPECT_THAT(SavedNames(), ElementsAre("Squat", "Row"));
}

TEST_F(ExerciseEditing, MovingUpSwapsTheRecordsAndKeepsTheMovedOneSelected) {
  AddExercise("Squat").SetValue1[0] = 1;
  AddExercise("Row").SetValue1[0] = 2;
  ClickRow("ExerciseList", 1);
  dialogs.answers = {"OK"};
  Click("MoveUpExerciseListButton");
  EXPECT_THAT(SavedNames(), ElementsAre("Row", "Squat"));
  EXPECT_EQ(Saved()[0].SetValue1[0], 2);
  EXPECT_EQ(List("ExerciseList").SelectedRow(), 0);
  EXPECT_EQ(List("ExerciseSummaryList").SelectedRow(), 0);
}

TEST_F(ExerciseEditing, TheFirstExerciseCannotMoveUp) {
  AddExercise("Squat");
  AddExercise("Row");
  ClickRow("ExerciseList", 0);
  Click("MoveUpExerciseListButton");
  EXPECT_THAT(dialogs.asked, IsEmpty());
}

TEST_F(ExerciseEditing, TheListsSelectTogether) {
  AddExercise("Squat");
  AddExercise("Row");
  ClickRow("ExerciseList", 1);
  EXPECT_EQ(List("ExerciseSummaryList").SelectedRow(), 1);
  ClickRow("ExerciseSummaryList", 0);
  EXPECT_EQ(List("ExerciseList").SelectedRow(), 0);
}

TEST_F(ExerciseEditing, TheListsDoNotFollowWhileTheScreenIsUpdating) {
  AddExercise("Squat");
  AddExercise("Row");
  state.ScreenUpdating = true;
  List("ExerciseList").SelectRow(1);
  EXPECT_EQ(List("ExerciseSummaryList").SelectedRow(), 0);
}

TEST_F(ExerciseEditing, ADoubleClickOpensTheExercise) {
  AddExercise("Squat");
  AddExercise("Row");
  DoubleClickRow("ExerciseList", 1);
  EXPECT_EQ(Get<QTabWidget>("SSTab1").currentIndex(), 1);
  EXPECT_EQ(Text("ExerciseNameLabel"), "Row");
}

TEST_F(ExerciseEditing, TheSummaryOpensTheExerciseToo) {
  AddExercise("Squat");
  AddExercise("Row");
  DoubleClickRow("ExerciseSummaryList", 1);
  EXPECT_EQ(Get<QTabWidget>("SSTab1").currentIndex(), 1);
  EXPECT_EQ(Text("ExerciseNameLabel"), "Row");
}

TEST_F(ExerciseEditing, NothingIsDoneWhileTheScreenIsUpdating) {
  AddExercise("Squat");
  AddExercise("Row");
  ClickRow("ExerciseList", 1);
  state.ScreenUpdating = true;
  Click("EditExerciseNameButton");
  Click("RemoveExerciseButton");
  Click("MoveUpExerciseListButton");
  EXPECT_THAT(dialogs.asked, IsEmpty());
}

}  // namespace
}  // namespace repvolta
