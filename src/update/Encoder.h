#pragma once

#include <string_view>

#include "platform/ChildProcess.h"

namespace repvolta {

enum class Encoding { kEncoderRun, kNoEncoder };

/// kNoEncoder when the current directory has none. Throws FileError.
Encoding EncodingNow();

/// Runs the encoder of the current directory, if there is one, on a WAV file and waits for its end.
/// An older `mp3File` is deleted first, so that it cannot be taken for the result; kEncoderRun does
/// not promise a new one. Throws FileError when the deletion fails.
Encoding EncodeMP3file(ChildProcesses& processes, std::string_view wavFile,
                       std::string_view mp3File);

}  // namespace repvolta
