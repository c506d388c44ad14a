#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "base/Bytes.h"

namespace repvolta {

/// Nothing that is taken in has more than this.
struct VoiceLimits {
  std::size_t files = 20'000;
  std::uint64_t clip = std::uint64_t{32} << 20;    // bytes of one, unpacked
  std::uint64_t bytes = std::uint64_t{512} << 20;  // of all clips
};

/// How many of how many clips are done. What it throws ends the work.
using VoiceWatch = std::function<void(std::size_t done, std::size_t all)>;

/// Gets a clip's name as ClipOfPath gives it, and its content, of which nothing is known.
using TakeVoiceClip = std::function<void(const std::string& clip, std::span<const Byte> content)>;

struct VoiceReading {
  TakeVoiceClip take;
  VoiceWatch watch = {};
  VoiceLimits limits = {};
};

// Both go through what may come from anywhere. All names and kinds of files are judged before the
// first clip is taken. They return the paths of the files that are no clips, and throw FileError
// when it is no voice that can be taken in, is damaged or cannot be read, and what `take` and
// `watch` throw; then some clips may have been taken.

std::vector<std::string> ReadVoiceFolder(const std::string& folder, const VoiceReading& reading);
std::vector<std::string> ReadVoiceArchive(const std::string& file, const VoiceReading& reading);

}  // namespace repvolta
