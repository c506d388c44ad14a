#pragma once

#include <functional>

#include "app/ProgramState.h"
#include "editing/MainScreen.h"
#include "platform/AudioOutputs.h"
#include "speech/SpeechSynthesizer.h"

namespace repvolta {

/// What the start needs from beyond the state and the screen. The two calls are those of the random
/// music list; they throw FileError.
struct StartUpServices {
  SpeechSynthesizer& speech;
  AudioOutputs& outputs;
  std::function<void()> compileMusicList;
  std::function<void()> countRandomMusicFiles;
};

/// The start of the main window: enters the program directory, which the state names, leads through
/// the first set-up, loads the settings and the last workout, and fills the tabs. A later
/// step that fails is told and passed over. Throws FileError when the directory cannot be entered.
void Form_Load(ProgramState& state, MainScreen& screen, const StartUpServices& services);

/// The guided set-up that asks for the folders and writes the first settings file; does nothing
/// when there is one, and returns false. The program directory must be current. When the settings
/// cannot be written it says so: the answers stay in memory.
bool FirstRunSetup(ProgramState& state, MainScreen& screen, const StartUpServices& services);

/// Stores the selected workout in the settings; when they cannot be saved it says so. The window
/// then ends the program.
void ExitButton_Click(ProgramState& state, MainScreen& screen);

}  // namespace repvolta
