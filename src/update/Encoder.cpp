#include "update/Encoder.h"

#include <string>

#include "base/File.h"
#include "base/ProgramFiles.h"
#include "base/Text.h"
#include "update/RepvoltaShellWait.h"

namespace repvolta {

Encoding EncodingNow() {
  return FileExists(kEncoder) ? Encoding::kEncoderRun : Encoding::kNoEncoder;
}

Encoding EncodeMP3file(ChildProcesses& processes, std::string_view wavFile,
                       std::string_view mp3File) {
  if (EncodingNow() == Encoding::kNoEncoder) return Encoding::kNoEncoder;
  const std::string target(TrimBlanks(mp3File));
  RemoveFile(target);
  ShellWait(
      processes,
      std::string(kEncoder).append(" -V4 ").append(TrimBlanks(wavFile)).append(" ").append(target));
  return Encoding::kEncoderRun;
}

}  // namespace repvolta
