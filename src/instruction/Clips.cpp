#include "instruction/Clips.h"

#include "base/FileNames.h"
#include "base/ProgramFiles.h"
#include "instruction/MergeWAVfiles.h"

namespace repvolta {

std::string ClipFile(const Clip& clip) {
  if (clip.kind == Clip::Kind::kName) {
    return ExistingName(kNameClipFolder + AsFileName(clip.text, kNameClipExtension));
  }
  return ExistingName(kClipFolder + clip.text + kClipExtension);
}

void AppendClip(const std::string& target, std::string_view clip, ProgressLog& log) {
  MergeWAVfiles(target, ClipFile({Clip::Kind::kWord, std::string(clip)}), log);
}

}  // namespace repvolta
