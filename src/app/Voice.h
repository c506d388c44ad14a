#pragma once

#include "app/ProgramState.h"

namespace repvolta {

/// Sets the speaking voice up from the settings, as it then stays until the next start but for a
/// newly chosen voice: rate and volume are heard from the next start on, and the format always
/// begins as SAFT16kHz16BitMono. Both are meant so.
void SetUpVoice(ProgramState& state);

}  // namespace repvolta
