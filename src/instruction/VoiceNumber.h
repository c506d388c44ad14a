#pragma once

#include <string>

#include "app/ProgressLog.h"

namespace repvolta {

/// Appends to the WAV file `target`, which must exist, the clips that say `value`: up to 9999 and
/// one decimal digit. `value` is used up: it holds what was not spoken (quirk 18). Zero, negative
/// values and values that are no numbers say nothing.
void GenerateVoiceNumber(float& value, const std::string& target, ProgressLog& log);

}  // namespace repvolta
