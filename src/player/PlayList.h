#pragma once

#include <string>

#include "player/OutputFolder.h"

namespace repvolta {

inline constexpr const char* kPlayListExtension = ".M3U";  // quirk 51

/// The name of a workout's play list.
std::string PlayListName(const std::string& workoutName);

/// A line of the play list: the path, byte for byte, and CR LF. Throws std::invalid_argument for a
/// path with a line break, which would become two lines.
std::string PlayListLine(const std::string& path);

/// The play list of one update, in its folder. It does not exist before its first line.
class PlayList {
 public:
  PlayList(OutputFolder& folder, std::string name) : folder_(folder), name_(std::move(name)) {}

  /// The name under which the disk keeps it.
  const std::string& Name() const { return name_; }

  /// Appends the line of a path. Where the disk writes no file a second time, it is kept until
  /// Complete(). Throws FileError, and what PlayListLine throws.
  void AddToPlaylistFile(const std::string& path);

  /// Writes the whole play list anew when lines are waiting. Throws FileError.
  void Complete();

 private:
  void Append(const std::string& text);

  OutputFolder& folder_;
  std::string name_;
  std::string text_;  // of all lines
  bool isWaiting_ = false;
};

}  // namespace repvolta
