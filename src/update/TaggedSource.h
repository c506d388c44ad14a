#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/File.h"
#include "update/ProcessMP3tag.h"

namespace repvolta {

/// A file with its new tag, ready to be written to the player from its start to its end in one
/// pass, since many players can do nothing else with a file.
class TaggedSource {
 public:
  struct Tag {
    std::string_view title;
    std::string_view workoutFileName;
  };

  /// `path` is where the copy will be. Where the tag does not simply replace the source's
  /// beginning, the copy is made and tagged in `workingFile` first, which may be the source itself.
  /// A failure is kept for Log(), and the source is then taken as it is.
  TaggedSource(const std::string& source, const std::string& workingFile, const std::string& path,
               const Tag& tag);

  /// The file to copy, and what differs in the copy.
  const std::string& FileToCopy() const { return file_; }
  CopyStart Start() const;

  /// Logs what the tagging had to say, now that the copy is at the path under the name `kept`.
  /// Returns why it failed.
  std::optional<std::string> Log(const std::string& kept, ProgressLog& log) const;

 private:
  void Stage(const std::string& source, const std::string& workingFile, const Tag& tag);

  std::string path_;
  std::string file_;
  std::optional<TaggedCopy> plan_;
  std::vector<std::string> lines_;
  std::optional<std::string> failure_;
};

}  // namespace repvolta
