#pragma once

#include <functional>
#include <string>

#include "editing/Editor.h"
#include "platform/SoundPlayer.h"
#include "speech/BackgroundSpeech.h"

namespace repvolta {

class Microphone;

/// What the windows of the menu "Voice" work with. Of the editor they use the state, the clock, the
/// voices of `program.speech`, and the boxes.
struct VoiceServices {
  const Editor& editor;
  SoundPlayer& player;
  BackgroundSpeech& speech;
  std::function<ChosenOutput()> output;  // the one that is chosen in AudioOutputCB
  Microphone* microphone = nullptr;      // none: nothing can be recorded
  std::string programVoice = {};         // the folder of the program's own clips; "" for none
  std::string wordLists = {};            // the folder of the lists of words; "" for none
};

/// Runs a step of such a window. A failure is shown in a box, after `failure` unless it says itself
/// what did not happen. Returns false then.
bool Attempt(const VoiceServices& services, const std::string& failure,
             const std::function<void()>& step);

}  // namespace repvolta
