#include "editing/ExerciseSteps.h"

#include "support/EditorFixture.h"

namespace repvolta {
namespace {

class ExerciseStep : public EditorFixture {
 protected:
  ExerciseStep() {
    AddNewExercise("Squat").NumberOfSets = 2;
    AddNewExercise("Row").NumberOfSets = 2;
    state.CurrentExercise = 0;
    Show();
  }
};

TEST_F(ExerciseStep, ShowsTheExerciseBesideAndSelectsItsRow) {
  NextExerciseButton_Click(editor);
  EXPECT_EQ(screen.exerciseName, "Row");
  EXPECT_EQ(screen.exercises.selected, 1);
  PreviousExerciseButton_Click(editor);
  EXPECT_EQ(screen.exerciseName, "Squat");
  EXPECT_EQ(screen.exercises.selected, 0);
}

TEST_F(ExerciseStep, EndsAtTheEndsOfTheWorkout) {
  PreviousExerciseButton_Click(editor);
  EXPECT_EQ(state.CurrentExercise, 0);
  NextExerciseButton_Click(editor);
  NextExerciseButton_Click(editor);
  EXPECT_EQ(state.CurrentExercise, 1);
}

TEST_F(ExerciseStep, SelectsNoSetAndNoMusicOfTheOtherExercise) {
  state.Workout[0].NumberOfMusicFiles = state.Workout[1].NumberOfMusicFiles = 2;
  Show();
  screen.SelectSet(1);
  screen.SelectMusic(1);
  NextExerciseButton_Click(editor);
  EXPECT_EQ(screen.selectedSet, -1);
  EXPECT_EQ(screen.music.selected, -1);
}

TEST_F(ExerciseStep, ChangesNoRecord) {
  const ExerciseSlots before = state.Workout;
  NextExerciseButton_Click(editor);
  EXPECT_EQ(state.Workout, before);
}

}  // namespace
}  // namespace repvolta
