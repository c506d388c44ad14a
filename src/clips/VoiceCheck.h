#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace repvolta {

enum class ClipFault {
  kMissing,
  kUnreadable,
  kNoWav,
  kOtherFormat,  // than all other clips, so that it cannot be joined to them
  kTooLong,
  kSilent,
  kClipped,
  kTooLoud,  // compared with the other clips of the voice
  kTooQuiet,
};

/// What is wrong with one clip of a voice.
struct ClipFinding {
  std::string file;  // below the folder of the voice
  ClipFault fault;
  std::string words;  // for the user, to follow the file's name: "is missing"

  bool operator==(const ClipFinding&) const = default;
};

struct VoiceCheck {
  std::size_t words = 0;  // that are there
  std::size_t names = 0;
  double loudness = 0;  // LUFS, of the clip in the middle; minus infinity when none can be heard
  std::vector<ClipFinding> findings;  // the words in their order, then the names in theirs
};

/// Looks at a folder of clips as a whole voice: all words must be there, names may. Changes
/// nothing. Throws FileError when the folder cannot be read.
VoiceCheck CheckVoice(const std::string& folder);

}  // namespace repvolta
