#pragma once

#include <string>

#include "app/ProgressLog.h"

namespace repvolta {

/// Appends the samples of the WAV file `source` to the WAV file `target` and sets the sizes in its
/// header. Both have the 46-byte header and one sample format; neither is checked (quirk 26). Never
/// throws FileError: a missing file is logged and leaves `target` as it was; a file without
/// samples, or a step that fails, is logged, and the next step runs.
void MergeWAVfiles(const std::string& target, const std::string& source, ProgressLog& log);

}  // namespace repvolta
