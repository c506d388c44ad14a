#include "support/EditorFixture.h"

#include <filesystem>

#include "app/Exercises.h"
#include "app/RecordFormat.h"
#include "app/WorkoutFiles.h"
#include "editing/LoadedWorkout.h"

#include "support/TemporaryFolder.h"

namespace repvolta {

EditorFixture::EditorFixture() {
  state.Settings.DefaultExerciseTime = 5;
  state.Settings.OutputPath = folder.Path() + "player";
  state.Settings.MusicPath = folder.Path() + "music";
  std::filesystem::create_directory("player");
  std::filesystem::create_directory("music");
  ListEmptyWorkouts({"Monday"});
  screen.SelectWorkout(0);
  state.WorkoutFileName = "Monday.RPV";
  LoadAndShowWorkout(editor);
}

void EditorFixture::ListEmptyWorkouts(const std::vector<std::string>& names) {
  for (const std::string& name : names) PutFile("workouts/" + name + ".RPV", EncodeWorkout({}));
  ListWorkouts(editor);
}

ExerciseRecord& EditorFixture::AddNewExercise(const std::string& name) {
  ExerciseRecord& exercise = state.Workout[state.NumberOfExercises];
  InitialiseExercise(exercise, state.Settings, clock.Today());
  AddExercise(name);
  Show();
  return exercise;
}

void EditorFixture::Show() {
  SaveWorkout(state);
  screen.UpdateWorkoutScreen();
  screen.UpdateExerciseScreen();
}

}  // namespace repvolta
