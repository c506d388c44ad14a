#pragma once

#include <string_view>

#include "platform/ChildProcess.h"

namespace repvolta {

enum class Encoding { kEncoderRun, kNoEncoder };

/// Runs the encoder of the current directory on a WAV file and waits for its end; runs nothing when
/// it is not there. kEncoderRun does not say that `mp3File` was written; an older one is deleted
/// first, so that it cannot be taken for the result. Throws FileError when that fails.
Encoding EncodeMP3file(ChildProcesses& processes, std::string_view wavFile,
                       std::string_view mp3File);

}  // namespace repvolta
