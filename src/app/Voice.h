#pragma once

#include "app/ProgramState.h"

namespace repvolta {

/// Sets the speaking voice up from the settings. A rate or volume that is chosen later is heard
/// from the next start on (quirk 112); the format always begins as SAFT16kHz16BitMono (quirk 111).
void SetUpVoice(ProgramState& state);

}  // namespace repvolta
