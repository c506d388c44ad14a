#include "voices/ClipsAsMade.h"

#include <utility>

#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/ProgramFiles.h"
#include "base/WholeFile.h"
#include "voices/ProgramVoice.h"
#include "voices/SongLoudness.h"

namespace repvolta {
namespace {

constexpr std::size_t kLargestClip = std::size_t{32} << 20;

}  // namespace

ClipsAsMade::ClipsAsMade(const std::string& programDirectory, const std::string& programVoice)
    : folder_(programDirectory + kClipFolder) {
  if (!IsTaken(programDirectory + kClipLevels)) return;
  levels_.emplace(programDirectory, ProgramVoice(programVoice));
  if (levels_->Fault()) throw FileError(*levels_->Fault());
}

Bytes ClipsAsMade::Content(const std::string& clip) const {
  std::optional<Bytes> made = levels_ ? levels_->ClipAt(clip, kVoiceAsMade) : std::nullopt;
  return made ? std::move(*made) : ReadWholeFile(ExistingName(folder_ + clip), kLargestClip);
}

}  // namespace repvolta
