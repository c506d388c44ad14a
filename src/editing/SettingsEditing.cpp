#include "editing/SettingsEditing.h"

#include "app/Options.h"
#include "app/PathField.h"
#include "app/WorkoutFiles.h"
#include "base/Numbers.h"
#include "editing/AnswerLines.h"
#include "editing/Answers.h"
#include "editing/FolderQuestions.h"
#include "editing/ListMusic.h"
#include "editing/Undo.h"

namespace repvolta {
namespace {

Flag FlagOf(CheckBox box) { return box == CheckBox::kTicked ? kTrue : kFalse; }

}  // namespace

void MusicPathButton_Click(Editor& editor) {
  const std::string path =
      editor.dialogs.SelectDirectory(MusicFolderQuestion(editor.State().Settings));
  if (path.empty()) return;
  editor.program.Settings().MusicPath = PathField(path);
  editor.screen.ShowPaths();
  SaveChangedSettings(editor);
  editor.dialogs.ShowMessage(
      "You have changed the music path. The random music file list must now be recompiled as "
      "well.");
  CompileMusicList_Click(editor);
}

void OutputPathButton_Click(Editor& editor) {
  const std::string path =
      editor.dialogs.SelectDirectory(OutputFolderQuestion(editor.State().Settings));
  if (path.empty()) return;
  editor.program.Settings().OutputPath = PathField(path);
  editor.screen.ShowPaths();
  SaveChangedSettings(editor);
}

void ExerciseTimeButton_Click(Editor& editor) {
  const std::optional<std::int16_t> minutes = DefaultTimeOf(
      editor.dialogs.AskText("Enter the default Exercise time", "Set Default Exercise Time",
                             DefaultTimeHelp(editor.State().Settings)));
  if (!minutes) return;
  editor.program.Settings().DefaultExerciseTime = *minutes;
  editor.screen.ShowDefaultExerciseTime();
  SaveChangedSettings(editor);
  // It changes no more than the form of an odd file. The workout has no change that could be lost,
  // so a plain FileError is right here.
  editor.history->Change(StepOfExercise(editor, "Save Workout"),
                         [](const WorkoutAccess& workout) { SaveWorkout(workout.State()); });
}

void CompileMusicList_Click(Editor& editor) {
  const ProgramState& state = editor.State();
  MakeProgramDirectoryCurrent(state);
  if (state.Settings.MusicPath.IsBlank()) {
    editor.dialogs.ShowMessage(
        "No music path has been defined, cannot compile random music file list.");
    return;
  }
  ListMusic(editor);
  editor.dialogs.ShowMessage("The random music list has been compiled.");
  editor.program.CountMusic();
  editor.screen.UpdateSettingsScreen();
}

void RateSldr_Change(Editor& editor, int value) {
  if (editor.State().ScreenUpdating) return;
  editor.program.Settings().VoiceRate = CheckedInt16(value);
  SaveChangedSettings(editor);
}

void VolumeSldr_Change(Editor& editor, int value) {
  if (editor.State().ScreenUpdating) return;
  editor.program.Settings().VoiceVolume = CheckedInt16(value);
  SaveChangedSettings(editor);
}

void VoiceCB_Click(Editor& editor, int index) {
  if (editor.State().ScreenUpdating) return;
  editor.program.Voice().Voice = editor.program.Settings().VoiceIndex = CheckedInt16(index);
  SaveChangedSettings(editor);
}

void FormatCB_Change(Editor& editor, int index) {
  if (editor.State().ScreenUpdating) return;
  editor.program.Voice().Format = CheckedInt16(index);
  editor.program.Settings().AudioFormat = std::to_string(index);
  SaveChangedSettings(editor);
}

void IncludeWeightValuesCheck_Click(Editor& editor, CheckBox box) {
  if (editor.State().ScreenUpdating) return;
  editor.program.Settings().IncludeWeightValues = FlagOf(box);
  SaveChangedSettings(editor);
}

void AutoLoadPLaylistCheckbox_Click(Editor& editor, CheckBox box) {
  if (editor.State().ScreenUpdating) return;
  editor.program.Settings().AutoLoadPlaylist = FlagOf(box);
  SaveChangedSettings(editor);
}

void PlayerPlayListCheck_Click(Editor& editor, CheckBox box) {
  if (editor.State().ScreenUpdating) return;
  Put(editor.program.Options(), kPlayListForPlayer, box == CheckBox::kTicked);
  SaveChangedOptions(editor);
}

}  // namespace repvolta
