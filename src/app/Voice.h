#pragma once

#include "app/ProgramState.h"

namespace repvolta {

/// Sets up the speaking voice from the settings at the start. Until the next start it keeps its
/// rate and volume, whatever the settings say; a newly chosen voice speaks at once. The format
/// always begins as SAFT16kHz16BitMono. Both are meant so.
void SetUpVoice(ProgramState& state);

}  // namespace repvolta
