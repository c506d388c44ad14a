#pragma once

#include "editing/VoiceServices.h"

#include "support/Pictures.h"

namespace repvolta {

/// The windows of the menu "Voice", and the earlier versions of the workout, with a voice, versions
/// and songs that it puts into the program directory and the state.
void TakeVoiceWindows(const Pictures& pictures, const Editor& editor, ProgramState& state);

}  // namespace repvolta
