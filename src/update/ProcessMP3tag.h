#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "app/ProgressLog.h"
#include "base/Bytes.h"
#include "mp3/RepvoltaMP3.h"

namespace repvolta {

/// The title in the tag of the file `path`, whose exercise has the sentence `title`.
std::string TitleOf(const std::string& path, std::string_view title);

/// Gives the MP3 file a new ID3v2 tag: the artist is the program's name, the album the workout's
/// file name, the title the first six characters of the file's name and `title`. Logs the result,
/// also when an old tag could not be removed. Throws what reading throws, and TagError.
void ProcessMP3tag(const std::string& path, std::string_view title,
                   std::string_view workoutFileName, ProgressLog& log);

/// The same for a working copy of the file that will be at `path`, which gives log and title its
/// name; errors name the copy.
void TagWorkingCopy(const std::string& copy, const std::string& path, std::string_view title,
                    std::string_view workoutFileName, ProgressLog& log);

/// How to write a copy of an MP3 file with its new tag in one step.
struct TaggedCopy {
  Bytes tag;                      // comes first
  std::uint64_t audioOffset = 0;  // then the source's bytes from here on

  bool operator==(const TaggedCopy&) const = default;
};

/// The copy that results from copying the MP3 file `source` to `path` and calling ProcessMP3tag
/// with the same texts, if that only replaces the beginning of the file by a tag, as for most
/// files. Nothing for other files and after any failure: copy and tag those in two steps.
std::optional<TaggedCopy> PlanTaggedCopy(const std::string& source, const std::string& path,
                                         std::string_view title, std::string_view workoutFileName);

/// TaggedCopy::audioOffset of a source that has been examined already; nothing for other files.
/// Throws FileError.
std::optional<std::uint64_t> AudioOffsetOf(const RepvoltaMP3& examined, const std::string& source);

/// What copying and tagging in two steps makes of a source that has been examined.
struct TaggedInSteps {
  std::uint64_t bytes = 0;
  std::string line = {};  // of the log, when an old tag stays; else ""
};

/// Throws FileError, and std::overflow_error, when the tag that stays cannot be read.
TaggedInSteps PlanTaggedInSteps(const RepvoltaMP3& examined, const std::string& source,
                                const std::string& path, std::string_view title,
                                std::string_view workoutFileName);

/// The size of TaggedCopy::tag. Titles of the same size give the same.
std::uint64_t SizeOfNewTag(const std::string& path, std::string_view title,
                           std::string_view workoutFileName);

/// Logs that `path` has its tag.
void LogTagged(const std::string& path, ProgressLog& log);

}  // namespace repvolta
