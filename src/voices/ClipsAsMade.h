#pragma once

#include <optional>
#include <string>

#include "base/Bytes.h"
#include "voices/VoiceLevels.h"

namespace repvolta {

/// What the clips in use were before the level of the voice was changed.
class ClipsAsMade {
 public:
  /// Both folders end with the separator; "" is the current one, and no clips of the program.
  /// Measures the voice when its level was changed. Throws FileError.
  ClipsAsMade(const std::string& programDirectory, const std::string& programVoice);

  /// `clip` is a path below the clip folder, where it must be. Throws FileError.
  Bytes Content(const std::string& clip) const;

 private:
  std::string folder_;
  std::optional<VoiceLevels> levels_;  // nothing when no level was ever changed
};

}  // namespace repvolta
