#include "instruction/Clips.h"

#include "base/FileNames.h"
#include "base/ProgramFiles.h"
#include "instruction/MergeWAVfiles.h"

namespace repvolta {

void AppendClip(const std::string& target, std::string_view clip, ProgressLog& log) {
  const std::string path = std::string(kClipFolder).append(clip).append(kClipExtension);
  MergeWAVfiles(target, ExistingName(path), log);
}

}  // namespace repvolta
