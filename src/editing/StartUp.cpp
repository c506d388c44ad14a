#include "editing/StartUp.h"

#include <algorithm>
#include <stdexcept>

#include "app/Options.h"
#include "app/PathField.h"
#include "base/File.h"
#include "base/FileError.h"
#include "base/Numbers.h"
#include "base/ProgramFiles.h"
#include "editing/FolderQuestions.h"
#include "editing/ListMusic.h"
#include "editing/LoadedWorkout.h"
#include "update/RestoreAtStart.h"

namespace repvolta {
namespace {

constexpr int kNone = -1;

/// One step of the start: a failure is shown, and the start goes on without the step. Returns
/// whether the step succeeded.
bool Try(const Editor& editor, const std::function<void()>& step) {
  try {
    step();
    return true;
  } catch (const std::exception& error) {
    editor.dialogs.ShowMessage(error.what());
    return false;
  }
}

void LoadOptionsAndTell(const Editor& editor) {
  editor.program.ReadOptions();
  const std::string odd = OddOptions(editor.State().Options);
  if (!odd.empty()) editor.dialogs.ShowMessage(odd);
}

void ClampLastWorkoutIndex(const EditedProgram& program) {
  std::int16_t& index = program.Settings().LastWorkoutIndex;
  if (index < 0 || index > program.state.NumberOfWorkouts - 1) index = 0;
}

/// Where the workout in memory stands in the list, else the one that was last chosen.
int RowOfWorkout(const ProgramState& state) {
  const auto& names = state.WorkoutNames;
  const auto found = std::ranges::find(names, state.WorkoutFileName);
  return found == names.end() ? state.Settings.LastWorkoutIndex
                              : static_cast<int>(found - names.begin());
}

/// Loads the workout that stands there in the list.
void LoadListedWorkout(const Editor& editor, int index) {
  const ProgramState& state = editor.State();
  MainScreen& screen = editor.screen;
  if (state.NumberOfWorkouts < 1) {
    editor.program.NameWorkout("");
    screen.EnableWorkoutControls();
    return;
  }
  editor.program.NameWorkout(state.WorkoutNames.at(static_cast<std::size_t>(index)));
  screen.EnableWorkoutControls();
  screen.SelectWorkout(index);
  try {
    LoadAndShowWorkout(editor);
  } catch (const FileError&) {
    // An unreadable workout must not be edited, because saving would replace it by an empty one.
    editor.program.NameWorkout("");
    screen.SelectWorkout(kNone);
    screen.EnableWorkoutControls();
    throw;
  } catch (const std::exception& error) {
    throw std::runtime_error(std::string("The workout cannot be shown as a whole.\r") +
                             error.what());
  }
}

void SetUpSpeech(const Editor& editor, AudioOutputs& outputs) {
  Try(editor, [&] { editor.screen.ShowVoices(editor.program.speech.VoiceNames()); });
  editor.screen.ShowAudioOutputs(outputs.Names());
  editor.program.StartVoice();
  editor.screen.ShowFormats();
}

/// Shows the message and the folder picker, and returns the chosen folder. If the path does not fit
/// its field, a message says so and the result is empty.
FixedText<256> AskForFolder(const Editor& editor, std::string_view text, std::string_view title,
                            const FolderQuestion& question) {
  editor.dialogs.ShowMessage(text, title);
  const std::string folder = editor.dialogs.SelectDirectory(question);
  FixedText<256> path;
  Try(editor, [&] { path = PathField(folder); });
  return path;
}

void CountMusic(const Editor& editor) {
  Try(editor, [&] { editor.program.CountMusic(); });
}

void AskForMusic(const Editor& editor) {
  editor.program.Settings().MusicPath =
      AskForFolder(editor,
                   "Repvolta needs to know where your MP3 music files are loacted.\r"
                   "These are the music files Repvolta will use to create your workout.\r"
                   "Press ENTER to select where your files are located",
                   "Find your music files", MusicFolderQuestion(editor.State().Settings));
  editor.screen.ShowPaths();
  Try(editor, [&] {
    ListMusic(editor);
    editor.dialogs.ShowMessage("The random music list has been compiled.");
  });
  CountMusic(editor);
}

void AskForOutput(const Editor& editor) {
  editor.program.Settings().OutputPath = AskForFolder(
      editor,
      "Repvolta now needs to know what directory you want to store your Exercise files "
      "in.\r"
      "It is recommended you create a new directory just for this purpose.\r"
      "Press ENTER to select a directory.",
      "Select your output directory", OutputFolderQuestion(editor.State().Settings));
  editor.screen.ShowPaths();
}

}  // namespace

void Form_Load(const Editor& editor, AudioOutputs& outputs) {
  const ProgramState& state = editor.State();
  FinishInterruptedRestore(state.ProgramDirectory);
  MakeProgramDirectoryCurrent(state);
  bool isSetUp = false;
  // Settings must not be saved while it is unknown whether there is a settings file.
  editor.program.KeepUnreadSettings(!Try(editor, [&] { isSetUp = FirstRunSetup(editor); }));
  editor.screen.ShowTab(WindowTab::kWorkout);
  Try(editor, [&] { ListWorkouts(editor); });
  if (!isSetUp && !state.SettingsAreUnread) Try(editor, [&] { editor.program.ReadSettings(); });
  Try(editor, [&] { LoadOptionsAndTell(editor); });
  const ScreenUpdate updating = editor.program.BeginScreenUpdate();
  ClampLastWorkoutIndex(editor.program);
  Try(editor, [&] { LoadListedWorkout(editor, state.Settings.LastWorkoutIndex); });
  SetUpSpeech(editor, outputs);
  CountMusic(editor);
  editor.screen.UpdateSettingsScreen();
}

void ReadAndShowAll(const Editor& editor) {
  const ProgramState& state = editor.State();
  Try(editor, [&] { MakeProgramDirectoryCurrent(state); });
  Try(editor, [&] { ListWorkouts(editor); });
  Try(editor, [&] { editor.program.ReadSettings(); });
  Try(editor, [&] { LoadOptionsAndTell(editor); });
  const ScreenUpdate updating = editor.program.BeginScreenUpdate();
  ClampLastWorkoutIndex(editor.program);
  Try(editor, [&] { LoadListedWorkout(editor, RowOfWorkout(state)); });
  editor.program.StartVoice();
  Try(editor, [&] { editor.screen.ShowVoices(editor.program.speech.VoiceNames()); });
  editor.screen.ShowFormats();
  CountMusic(editor);
  editor.screen.UpdateSettingsScreen();
}

bool FirstRunSetup(const Editor& editor) {
  if (FileExists(kSettingsFile)) return false;
  // The slips in these texts are quirk 120.
  editor.dialogs.ShowMessage(
      "This is the first time the program has been executed, so lets set up some simple stuff "
      "first to get started.\rPress ENETER to begin.",
      "Welcome to Repvolta");
  AskForMusic(editor);
  AskForOutput(editor);
  SettingsRecord& settings = editor.program.Settings();
  settings.DefaultExerciseTime = 5;
  settings.IncludeWeightValues = kTrue;
  settings.VoiceVolume = 100;
  Try(editor, [&] { editor.program.WriteSettings(); });
  return true;
}

void ExitButton_Click(const Editor& editor) {
  // The next start finishes the restore, whose settings are the ones to keep.
  if (editor.State().RestoreIsPending) return;
  Try(editor, [&] {
    MakeProgramDirectoryCurrent(editor.State());
    // This must come before the selection is stored, which would otherwise be replaced if it has
    // not changed since the start.
    editor.program.ReloadSettings();
    editor.program.Settings().LastWorkoutIndex = CheckedInt16(editor.screen.SelectedWorkout());
    editor.program.WriteSettings();
  });
}

}  // namespace repvolta
