#pragma once

#include "app/ProgramState.h"

namespace repvolta {

/// Sets up the speaking voice from the settings. The program does this once, when it starts: a
/// new rate or volume is not heard before the next start (quirk 112), and the format is always
/// SAFT16kHz16BitMono at first (quirk 111).
void SetUpVoice(ProgramState& state);

}  // namespace repvolta
