#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "app/ProgressLog.h"
#include "base/Bytes.h"

namespace repvolta {

/// Gives the MP3 file a fresh ID3v2 tag: our name as the artist, the workout's file name as the
/// album, the first six characters of the file's name and `title` as the title. Logs how it went.
/// An old tag that stays is logged, not thrown; throws what reading throws, and TagError.
void ProcessMP3tag(const std::string& path, std::string_view title,
                   std::string_view workoutFileName, ProgressLog& log);

/// A copy of an MP3 file that has its fresh tag from the start.
struct TaggedCopy {
  Bytes tag;                      // what stands in front
  std::uint64_t audioOffset = 0;  // the bytes behind it are those of the source from here on

  bool operator==(const TaggedCopy&) const = default;
};

/// What copying the MP3 file `source` to `path` and then ProcessMP3tag with the same texts come to,
/// for the files that this only puts a tag in front of, an old one cut off: most are so. Nothing
/// for all others, and where anything goes wrong: they are to be copied and tagged in two steps.
std::optional<TaggedCopy> PlanTaggedCopy(const std::string& source, const std::string& path,
                                         std::string_view title, std::string_view workoutFileName);

/// Logs that `path` has its tag.
void LogTagged(const std::string& path, ProgressLog& log);

}  // namespace repvolta
