#pragma once

#include <string>

#include "app/ProgressLog.h"

namespace repvolta {

/// Appends the samples of the WAV file `source` to the WAV file `target` and sets the sizes in its
/// header. Both should have the 46-byte header and the same sample format; neither is checked
/// (quirk 26). Failures are logged and never thrown: a missing file leaves `target` unchanged, and
/// after any other failing step the next step runs.
void MergeWAVfiles(const std::string& target, const std::string& source, ProgressLog& log);

}  // namespace repvolta
