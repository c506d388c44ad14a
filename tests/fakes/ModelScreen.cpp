#include "fakes/ModelScreen.h"

#include "base/Text.h"

namespace repvolta {

namespace {

int RowOrNone(int row, const std::vector<std::string>& rows) {
  return row >= 0 && row < static_cast<int>(rows.size()) ? row : -1;
}

}  // namespace

void ListModel::Select(int row) { selected = RowOrNone(row, rows); }

void ModelScreen::ShowWorkoutNames() {
  workouts.rows = state_.WorkoutNames;
  workouts.Select(-1);
}

void ModelScreen::UpdateWorkoutScreen() {
  exercises.rows = ExerciseRows(state_);
  summaries = SummaryRows(state_);
  exercises.Select(state_.CurrentExercise);
  totalMusicTime = TotalMusicTimeText(state_);
}

void ModelScreen::UpdateExerciseScreen() {
  if (state_.NumberOfExercises < 1) return;
  const ExerciseRecord& exercise = state_.Workout[state_.CurrentExercise];
  exerciseName = exercise.ExerciseName.Trimmed();
  fieldNames = FieldNamesOf(exercise);
  targetTime = exercise.TargetExerciseTime;
  musicTime = exercise.TotalMusicTime;
  music.rows = MusicRows(exercise);
  music.Select(music.selected);
  sets = SetRows(exercise, clock_.Now());
  SelectSet(selectedSet);
}

void ModelScreen::UpdateSettingsScreen() {
  settings = state_.Settings;
  randomMusicFiles = state_.RandomMusicFiles;
}

void ModelScreen::ShowPaths() {
  settings.MusicPath = state_.Settings.MusicPath;
  settings.OutputPath = state_.Settings.OutputPath;
}

void ModelScreen::ShowDefaultExerciseTime() {
  settings.DefaultExerciseTime = state_.Settings.DefaultExerciseTime;
}

void ModelScreen::EnableWorkoutControls() {
  workoutCanBeEdited = !TrimBlanks(state_.WorkoutFileName).empty();
}

void ModelScreen::SelectSet(int row) { selectedSet = RowOrNone(row, sets[kSetList1]); }

}  // namespace repvolta
