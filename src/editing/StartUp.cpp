#include "editing/StartUp.h"

#include "app/PathField.h"
#include "app/ScreenUpdate.h"
#include "app/Settings.h"
#include "app/Voice.h"
#include "app/WorkoutFiles.h"
#include "base/File.h"
#include "base/FileError.h"
#include "base/Numbers.h"

namespace repvolta {
namespace {

constexpr int kNone = -1;

/// One step of the start: a failure is told, and the start goes on without the step. Returns
/// whether it was done.
bool Try(UserInterface& screen, const std::function<void()>& step) {
  try {
    step();
    return true;
  } catch (const std::exception& error) {
    screen.ShowMessage(error.what());
    return false;
  }
}

void ClampLastWorkoutIndex(ProgramState& state) {
  std::int16_t& index = state.Settings.LastWorkoutIndex;
  if (index < 0 || index > state.NumberOfWorkouts - 1) index = 0;
}

void LoadLastWorkout(ProgramState& state, MainScreen& screen) {
  if (state.NumberOfWorkouts < 1) {
    screen.EnableWorkoutControls();
    return;
  }
  const int index = state.Settings.LastWorkoutIndex;
  state.WorkoutFileName = state.WorkoutNames.at(static_cast<std::size_t>(index));
  screen.EnableWorkoutControls();
  screen.SelectWorkout(index);
  try {
    LoadWorkout(state, screen);
  } catch (const FileError&) {
    // What could not be read is not to be edited: an empty workout would take its place.
    state.WorkoutFileName.clear();
    screen.SelectWorkout(kNone);
    screen.EnableWorkoutControls();
    throw;
  }
}

void SetUpSpeech(ProgramState& state, MainScreen& screen, const StartUpServices& services) {
  Try(screen, [&] { screen.ShowVoices(services.speech.VoiceNames()); });
  screen.ShowAudioOutputs(services.outputs.Names());
  SetUpVoice(state);
  screen.ShowFormats();
}

/// Message, picker: the folder that the person chose; none when its path cannot be kept, which is
/// told.
FixedText<256> AskForFolder(MainScreen& screen, std::string_view text, std::string_view title) {
  screen.ShowMessage(text, title);
  const std::string folder = screen.SelectDirectory();
  FixedText<256> path;
  Try(screen, [&] { path = PathField(folder); });
  return path;
}

void AskForMusic(ProgramState& state, MainScreen& screen, const StartUpServices& services) {
  state.Settings.MusicPath =
      AskForFolder(screen,
                   "Repvolta needs to know where your MP3 music files are loacted.\r"
                   "These are the music files Repvolta will use to create your workout.\r"
                   "Press ENTER to select where your files are located",
                   "Find your music files");
  screen.ShowPaths();
  Try(screen, [&] {
    services.compileMusicList();
    screen.ShowMessage("The random music list has been compiled.");
  });
  Try(screen, services.countRandomMusicFiles);
}

void AskForOutput(ProgramState& state, MainScreen& screen) {
  state.Settings.OutputPath = AskForFolder(
      screen,
      "Repvolta now needs to know what directory you want to store your Exercise files "
      "in.\r"
      "It is recommended you create a new directory just for this purpose.\r"
      "Press ENTER to select a directory.",
      "Select your output directory");
  screen.ShowPaths();
}

}  // namespace

void Form_Load(ProgramState& state, MainScreen& screen, const StartUpServices& services) {
  MakeProgramDirectoryCurrent(state);
  bool isSetUp = false;
  // Until it is known whether there are settings, none may be saved in their place.
  state.SettingsAreUnread = !Try(screen, [&] { isSetUp = FirstRunSetup(state, screen, services); });
  screen.ShowTab(WindowTab::kWorkout);
  Try(screen, [&] { LoadWorkoutNames(state, screen); });
  if (!isSetUp && !state.SettingsAreUnread) Try(screen, [&] { LoadSettings(state); });
  const ScreenUpdate updating(state);
  ClampLastWorkoutIndex(state);
  Try(screen, [&] { LoadLastWorkout(state, screen); });
  SetUpSpeech(state, screen, services);
  Try(screen, services.countRandomMusicFiles);
  screen.UpdateSettingsScreen();
}

bool FirstRunSetup(ProgramState& state, MainScreen& screen, const StartUpServices& services) {
  if (FileExists(kSettingsFile)) return false;
  // The slips in these texts are meant.
  screen.ShowMessage(
      "This is the first time the program has been executed, so lets set up some simple stuff "
      "first to get started.\rPress ENETER to begin.",
      "Welcome to Repvolta");
  AskForMusic(state, screen, services);
  AskForOutput(state, screen);
  state.Settings.DefaultExerciseTime = 5;
  state.Settings.IncludeWeightValues = kTrue;
  state.Settings.VoiceVolume = 100;
  Try(screen, [&] { SaveSettings(state); });
  return true;
}

void ExitButton_Click(ProgramState& state, MainScreen& screen) {
  Try(screen, [&] {
    MakeProgramDirectoryCurrent(state);
    // Before the selection is stored: it counts also where it is that of the start.
    ReloadChangedSettings(state);
    state.Settings.LastWorkoutIndex = CheckedInt16(screen.SelectedWorkout());
    SaveSettings(state);
  });
}

}  // namespace repvolta
