#include "update/ClipFiles.h"

#include "base/File.h"
#include "instruction/Clips.h"

namespace repvolta {

const ClipFiles::Found& ClipFiles::Of(const Clip& clip) {
  const auto [place, isNew] = found_.try_emplace({clip.kind, clip.text});
  Found& found = place->second;
  if (isNew) {
    found.path = ClipFile(clip);
    found.size = SizeIfReachable(found.path);
  }
  return found;
}

}  // namespace repvolta
