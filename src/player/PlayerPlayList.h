#pragma once

#include <string>
#include <vector>

#include "mp3/RepvoltaMP3.h"

namespace repvolta {

inline constexpr const char* kPlayerPlayListExtension = ".m3u8";

inline constexpr int kUnknownSeconds = -1;

/// A file in the folder of the play list.
struct PlayerFile {
  std::string name;  // as it is on the player
  std::string title;
  int seconds = kUnknownSeconds;
};

/// The play list that players read: UTF-8, names relative to its folder, with titles and play
/// times.
class PlayerPlayList {
 public:
  /// Appends a file. One whose name has a line break cannot be listed and is left out.
  void Add(const PlayerFile& file);

  bool IsEmpty() const { return files_.empty(); }

  /// The content of the play list, with CR LF. Names and titles that are not UTF-8 are read as
  /// Windows-1252, and control characters in titles become blanks.
  std::string Text() const;

 private:
  std::vector<PlayerFile> files_;
};

/// The play time of an MP3 file in seconds; kUnknownSeconds when it has none or cannot be read.
int SecondsOf(const std::string& path);

/// The same of a file that has been examined already.
int SecondsOf(const RepvoltaMP3& song);

}  // namespace repvolta
