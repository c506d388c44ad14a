#include "editing/SettingsEditing.h"

#include "app/Options.h"
#include "app/PathField.h"
#include "app/ScreenUpdate.h"
#include "app/WorkoutFiles.h"
#include "base/Numbers.h"
#include "editing/AnswerLines.h"
#include "editing/Answers.h"
#include "editing/FolderQuestions.h"
#include "editing/ListMusic.h"
#include "update/RandomMusicList.h"

namespace repvolta {
namespace {

Flag FlagOf(CheckBox box) { return box == CheckBox::kTicked ? kTrue : kFalse; }

}  // namespace

void MusicPathButton_Click(Editor& editor) {
  const std::string path =
      editor.dialogs.SelectDirectory(MusicFolderQuestion(editor.State().Settings));
  if (path.empty()) return;
  editor.State().Settings.MusicPath = PathField(path);
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
  editor.State().Settings.OutputPath = PathField(path);
  editor.screen.ShowPaths();
  SaveChangedSettings(editor);
}

void ExerciseTimeButton_Click(Editor& editor) {
  const std::optional<std::int16_t> minutes = DefaultTimeOf(
      editor.dialogs.AskText("Enter the default Exercise time", "Set Default Exercise Time",
                             DefaultTimeHelp(editor.State().Settings)));
  if (!minutes) return;
  editor.State().Settings.DefaultExerciseTime = *minutes;
  editor.screen.ShowDefaultExerciseTime();
  SaveChangedSettings(editor);
  // The workout has no change that could be lost, so a plain FileError is right here.
  SaveWorkout(editor.State());
}

void CompileMusicList_Click(Editor& editor) {
  ProgramState& state = editor.State();
  MakeProgramDirectoryCurrent(state);
  if (state.Settings.MusicPath.IsBlank()) {
    editor.dialogs.ShowMessage(
        "No music path has been defined, cannot compile random music file list.");
    return;
  }
  ListMusic(editor);
  editor.dialogs.ShowMessage("The random music list has been compiled.");
  CountRandomMusicFiles(state);
  editor.screen.UpdateSettingsScreen();
}

void RateSldr_Change(Editor& editor, int value) {
  if (editor.State().ScreenUpdating) return;
  editor.State().Settings.VoiceRate = CheckedInt16(value);
  SaveChangedSettings(editor);
}

void VolumeSldr_Change(Editor& editor, int value) {
  if (editor.State().ScreenUpdating) return;
  editor.State().Settings.VoiceVolume = CheckedInt16(value);
  SaveChangedSettings(editor);
}

void VoiceCB_Click(Editor& editor, int index) {
  ProgramState& state = editor.State();
  if (state.ScreenUpdating) return;
  state.Voice.Voice = state.Settings.VoiceIndex = CheckedInt16(index);
  SaveChangedSettings(editor);
}

void FormatCB_Change(Editor& editor, int index) {
  ProgramState& state = editor.State();
  if (state.ScreenUpdating) return;
  state.Voice.Format = CheckedInt16(index);
  state.Settings.AudioFormat = std::to_string(index);
  SaveChangedSettings(editor);
}

void IncludeWeightValuesCheck_Click(Editor& editor, CheckBox box) {
  if (editor.State().ScreenUpdating) return;
  editor.State().Settings.IncludeWeightValues = FlagOf(box);
  SaveChangedSettings(editor);
}

void AutoLoadPLaylistCheckbox_Click(Editor& editor, CheckBox box) {
  if (editor.State().ScreenUpdating) return;
  editor.State().Settings.AutoLoadPlaylist = FlagOf(box);
  SaveChangedSettings(editor);
}

void PlayerPlayListCheck_Click(Editor& editor, CheckBox box) {
  if (editor.State().ScreenUpdating) return;
  Put(editor.State().Options, kPlayListForPlayer, box == CheckBox::kTicked);
  SaveChangedOptions(editor);
}

}  // namespace repvolta
