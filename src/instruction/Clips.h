#pragma once

#include <string>
#include <string_view>

#include "app/ProgressLog.h"
#include "instruction/SpokenWords.h"

namespace repvolta {

/// The file of a clip: that of its name without regard to case, if there is one.
std::string ClipFile(const Clip& clip);

/// Appends the recorded clip of a word or number ("reps", "300") to the WAV file `target`.
void AppendClip(const std::string& target, std::string_view clip, ProgressLog& log);

}  // namespace repvolta
