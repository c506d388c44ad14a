#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/Bytes.h"

namespace repvolta {

// The rules of docs/formats, implemented plainly, byte by byte over a file in memory. The program's
// readers, which go block by block, must agree with them.

enum class RuleResult { kNoFrame, kFrame, kDividesByZero, kOverflows };

struct Mp3ByRule {
  RuleResult result = RuleResult::kNoFrame;
  bool hasID3v1 = false;
  bool hasID3v2 = false;
  bool vbr = false;
  bool valid = false;
  std::int64_t headerOffset = 0;
  std::int64_t bitRate = 0;
  std::int64_t sampleRate = 0;
  std::int64_t audioBytes = 0;
  std::int64_t frameCount = 0;
  std::int64_t playTime = 0;
};

enum class TagsInside { kIgnored, kSearched };

Mp3ByRule ExamineByRule(std::span<const Byte> file, TagsInside inside);

struct FrameByRule {
  std::string identifier;
  std::string bytes;  // of the text
  bool operator==(const FrameByRule&) const = default;
};

struct TagByRule {
  bool present = false;
  std::size_t offset = 0;
  std::int32_t size = 0;  // the field; 0 for a version that is not read
  std::vector<FrameByRule> frames;
};

TagByRule ReadTagByRule(std::span<const Byte> file);

}  // namespace repvolta
