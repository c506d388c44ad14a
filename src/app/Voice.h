#pragma once

#include "app/ProgramState.h"

namespace repvolta {

/// Sets up the speaking voice from the settings at the start. Until the next start it keeps its
/// rate and volume, whatever the settings say (quirk 112); a newly chosen voice speaks at once. The
/// format always begins as SAFT16kHz16BitMono (quirk 111).
void SetUpVoice(ProgramState& state);

}  // namespace repvolta
