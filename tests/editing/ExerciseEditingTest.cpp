#include <stdexcept>

#include "base/FileError.h"
#include "editing/ExerciseEditing.h"

#include "support/EditorFixture.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::ThrowsMessage;

class ExerciseEditing : public EditorFixture {
 protected:
  void Add(const std::string& name) {
    dialogs.answers = {name};
    AddExerciseButton_Click(editor);
  }

  void AddSquatAndRow() {
    AddNewExercise("Squat");
    AddNewExercise("Row");
  }

  void AddFive() {
    for (int i = 0; i < 5; ++i) AddNewExercise("E" + std::to_string(i));
  }

  void Rename(int row, const std::string& name) {
    dialogs.answers = {name};
    EditExerciseNameButton_Click(editor, row);
  }

  void Remove(int row) {
    dialogs.answers = {"OK"};
    RemoveExerciseButton_Click(editor, row);
  }

  /// The names of the exercises in use in the workout file.
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

TEST_F(ExerciseEditing, TheNewExerciseIsShownAndSelected) {
  Add("Squat");
  Add("Row");
  EXPECT_THAT(screen.exercises.rows, ElementsAre("Squat", "Row"));
  EXPECT_EQ(screen.exercises.selected, 1);
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
    EXPECT_THAT(screen.exercises.rows, IsEmpty());
  }
}

TEST_F(ExerciseEditing, ASixthExerciseIsRefusedWithoutOpeningTheDialog) {
  AddFive();
  AddExerciseButton_Click(editor);
  EXPECT_THAT(dialogs.asked,
              ElementsAre("message|Repvolta|Maxmimum number of Exercises reached. Cannot add any "
                          "more."));
  EXPECT_EQ(state.NumberOfExercises, 5);
}

TEST_F(ExerciseEditing, ADefaultTimeThatDoesNotFitAddsNothing) {
  state.Settings.DefaultExerciseTime = 600;
  EXPECT_THAT([this] { Add("Squat"); },
              ThrowsMessage<std::overflow_error>("The number is too large"));
  EXPECT_EQ(state.NumberOfExercises, 0);
  EXPECT_THAT(screen.exercises.rows, IsEmpty());
}

TEST_F(ExerciseEditing, WhatCannotBeSavedIsToldAndStaysInMemoryAndOnTheScreen) {
  BlockWorkouts();
  EXPECT_THAT([this] { Add("Squat"); },
              ThrowsMessage<UnsavedChange>(HasSubstr("workouts/Monday.RPV could not be")));
  EXPECT_EQ(state.Workout[0].ExerciseName.Text(), "Squat");
  EXPECT_THAT(screen.exercises.rows, ElementsAre("Squat"));
  EXPECT_FALSE(state.ScreenUpdating);
}

TEST_F(ExerciseEditing, RenamingAsksWithTheOldNameAndSavesTheNewOne) {
  AddSquatAndRow();
  Rename(1, "Press");
  EXPECT_THAT(dialogs.asked, ElementsAre("ask|Edit Exercise Name|Enter a new Exercise Name|Row"));
  EXPECT_THAT(SavedNames(), ElementsAre("Squat", "Press"));
  EXPECT_THAT(screen.exercises.rows, ElementsAre("Squat", "Press"));
  EXPECT_EQ(screen.exercises.selected, 1);
}

TEST_F(ExerciseEditing, RenamingStopsWithoutAnAnswer) {
  AddNewExercise("Squat");
  for (const char* answer : {"", "  "}) {
    Rename(0, answer);
    EXPECT_THAT(SavedNames(), ElementsAre("Squat"));
  }
}

TEST_F(ExerciseEditing, ALongNameIsCutAtTheSizeOfItsField) {
  AddNewExercise("Squat");
  Rename(0, std::string(300, 'x'));
  EXPECT_THAT(SavedNames(), ElementsAre(std::string(256, 'x')));
}

TEST_F(ExerciseEditing, RenamingDoesNothingWithoutExercises) {
  for (const int row : {-1, 0}) EditExerciseNameButton_Click(editor, row);
  EXPECT_THAT(dialogs.asked, IsEmpty());
}

TEST_F(ExerciseEditing, NothingIsAskedWhenNoRowIsSelected) {
  AddNewExercise("Squat");
  EditExerciseNameButton_Click(editor, -1);
  RemoveExerciseButton_Click(editor, -1);
  MoveUpExerciseListButton_Click(editor, -1);
  EXPECT_THAT(dialogs.asked, IsEmpty());
}

TEST_F(ExerciseEditing, RemovingAsksWithTheName) {
  AddNewExercise("Squat");
  dialogs.answers = {"Cancel"};
  RemoveExerciseButton_Click(editor, 0);
  EXPECT_THAT(
      dialogs.asked,
      ElementsAre("confirm|Remove Exercise|Are you SURE you want to DELETE exercise:\rSquat"));
  EXPECT_THAT(SavedNames(), ElementsAre("Squat"));
}

TEST_F(ExerciseEditing, RemovingMovesTheLaterExercisesUpWhole) {
  AddSquatAndRow();
  state.Workout[1].SetValue1[4] = 9;
  AddNewExercise("Press");
  Remove(0);
  EXPECT_THAT(SavedNames(), ElementsAre("Row", "Press"));
  EXPECT_EQ(Saved()[0].SetValue1[4], 9);
  EXPECT_EQ(state.NumberOfExercises, 2);
}

TEST_F(ExerciseEditing, TheRowThatTookTheRemovedOnesPlaceIsSelected) {
  AddSquatAndRow();
  AddNewExercise("Press");
  Remove(1);
  EXPECT_EQ(screen.exercises.selected, 1);
  Remove(1);
  EXPECT_EQ(screen.exercises.selected, 0);
}

TEST_F(ExerciseEditing, RemovingTheLastOneClearsItsSlot) {
  AddNewExercise("Squat");
  Remove(0);
  EXPECT_THAT(SavedNames(), IsEmpty());
  EXPECT_EQ(state.NumberOfExercises, 0);
  EXPECT_THAT(screen.summaries, IsEmpty());
}

TEST_F(ExerciseEditing, RemovingOneOfFiveBlanksTheSlotBehindTheLast) {
  AddFive();
  state.Workout[5].ExerciseName = "hidden";
  Remove(0);
  EXPECT_TRUE(state.Workout[5].ExerciseName.IsBlank());
  EXPECT_EQ(state.NumberOfExercises, 4);
}

TEST_F(ExerciseEditing, MovingUpAsksWithTheName) {
  AddSquatAndRow();
  dialogs.answers = {"Cancel"};
  MoveUpExerciseListButton_Click(editor, 1);
  EXPECT_THAT(dialogs.asked,
              ElementsAre("confirm|Move Exercise|Are you SURE you want to move the exercise up the "
                          "list?:\rRow"));
  EXPECT_THAT(SavedNames(), ElementsAre("Squat", "Row"));
}

TEST_F(ExerciseEditing, MovingUpSwapsTheRecordsAndKeepsTheMovedOneSelected) {
  AddSquatAndRow();
  state.Workout[0].SetValue1[0] = 1;
  state.Workout[1].SetValue1[0] = 2;
  dialogs.answers = {"OK"};
  MoveUpExerciseListButton_Click(editor, 1);
  EXPECT_THAT(SavedNames(), ElementsAre("Row", "Squat"));
  EXPECT_EQ(Saved()[0].SetValue1[0], 2);
  EXPECT_EQ(screen.exercises.selected, 0);
}

TEST_F(ExerciseEditing, TheFirstExerciseCannotMoveUp) {
  AddSquatAndRow();
  MoveUpExerciseListButton_Click(editor, 0);
  EXPECT_THAT(dialogs.asked, IsEmpty());
}

TEST_F(ExerciseEditing, NothingIsDoneWhileTheScreenIsUpdating) {
  AddSquatAndRow();
  state.ScreenUpdating = true;
  EditExerciseNameButton_Click(editor, 1);
  RemoveExerciseButton_Click(editor, 1);
  MoveUpExerciseListButton_Click(editor, 1);
  EXPECT_THAT(dialogs.asked, IsEmpty());
}

}  // namespace
}  // namespace repvolta
