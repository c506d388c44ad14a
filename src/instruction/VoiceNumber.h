#pragma once

#include <string>

#include "app/ProgressLog.h"

namespace repvolta {

/// Appends the clips that say `value`, up to 9999 with one decimal digit, to the existing WAV file
/// `target`, and leaves in `value` the part that was not spoken. Zero, negative values and NaN are
/// not spoken (quirk 18).
void GenerateVoiceNumber(float& value, const std::string& target, ProgressLog& log);

}  // namespace repvolta
