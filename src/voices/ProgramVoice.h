#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/Bytes.h"
#include "voices/PutClips.h"

namespace repvolta {

/// The clips that the program brought, which nothing ever changes: the folder that FindProgramVoice
/// (app/ProgramDirectory.h) finds.
class ProgramVoice {
 public:
  /// `folder` ends with the separator; "" is a voice without clips.
  explicit ProgramVoice(std::string folder);

  /// `file` is a path below a clip folder, without regard to the case of its name.
  bool Has(const std::string& file) const;

  /// The clip as it was brought; nothing when there is none. Throws FileError.
  std::optional<Bytes> ClipOf(const std::string& file) const;

  /// The same for a voice with this loudness in LUFS (LoudnessOfVoice), to be put in place there:
  /// the very bytes when the program's voice is as loud. Nothing when there is none. Throws
  /// FileError.
  std::optional<NewClip> ClipFor(const std::string& file, double loudness);

 private:
  std::string folder_;
  std::optional<double> loudness_;  // once it was measured
};

}  // namespace repvolta
