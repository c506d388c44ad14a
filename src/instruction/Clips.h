#pragma once

#include <string>
#include <string_view>

#include "app/ProgressLog.h"

namespace repvolta {

/// Appends the recorded clip of a word or number ("reps", "300") to the WAV file `target`.
void AppendClip(const std::string& target, std::string_view clip, ProgressLog& log);

}  // namespace repvolta
