#include "editing/PreviewCommands.h"

#include "base/Text.h"
#include "editing/PreviewRows.h"
#include "update/PlanUpdate.h"

namespace repvolta {
namespace {

constexpr const char* kPageOfEncoder = "preview.html#without-an-encoder";

Preview PlanAndDescribe(const Editor& editor) {
  const ProgramState& state = editor.State();
  const UpdatePlan plan = PlanUpdate(state, editor.program.clock.Today(), editor.program.random);
  return PreviewOf(plan, state.Workout);
}

/// Makes the exercise the current one, as a choice in the list of exercises does.
void ShowExerciseNumber(const Editor& editor, int exercise) {
  if (exercise < 0 || exercise >= editor.State().NumberOfExercises) return;
  editor.program.SelectExercise(exercise);
  ShowWorkout(editor);
  ShowExercise(editor);
}

WindowTab TabOf(PreviewPlace::Kind kind) {
  switch (kind) {
    case PreviewPlace::Kind::kWorkout:
      return WindowTab::kWorkout;
    case PreviewPlace::Kind::kRandomMusicList:
    case PreviewPlace::Kind::kOutputPath:
      return WindowTab::kSettings;
    case PreviewPlace::Kind::kExercise:
    case PreviewPlace::Kind::kSet:
    case PreviewPlace::Kind::kSong:
    case PreviewPlace::Kind::kTargetTime:
    case PreviewPlace::Kind::kGuide:
      break;
  }
  return WindowTab::kExercise;
}

}  // namespace

PreviewOutcome PreviewUpdate(Editor& editor) {
  if (TrimBlanks(editor.State().WorkoutFileName).empty()) return {};
  MakeProgramDirectoryCurrent(editor.State());
  const PreviewOutcome outcome =
      editor.dialogs.ShowPreview([&] { return PlanAndDescribe(editor); }, editor.listening);
  if (outcome.place) ShowPlace(editor, *outcome.place);
  return outcome;
}

void ShowPlace(Editor& editor, const PreviewPlace& place) {
  if (place.kind == PreviewPlace::Kind::kGuide) {
    editor.dialogs.OpenGuide(kPageOfEncoder);
    return;
  }
  ShowExerciseNumber(editor, place.exercise);
  editor.screen.ShowTab(TabOf(place.kind));
  if (place.kind == PreviewPlace::Kind::kSet) editor.screen.SelectSet(place.row);
  if (place.kind == PreviewPlace::Kind::kSong) editor.screen.SelectMusic(place.row);
}

}  // namespace repvolta
