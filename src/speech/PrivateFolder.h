#pragma once

#include <string>

#include "base/Descriptor.h"

namespace repvolta {

/// The only files in a private folder, apart from their working files.
inline constexpr const char* kSpokenTextFile = "text";
inline constexpr const char* kSpokenSoundFile = "sound.wav";
inline constexpr const char* kSongFile = "song.mp3";
inline constexpr const char* kSongSamplesFile = "song.raw";

/// A folder in the folder for temporary files that only this user can enter; the destructor deletes
/// it with its content. The constructor also deletes such folders that killed programs left, but
/// not other folders whose names only look alike.
class PrivateFolder {
 public:
  /// Throws FileError.
  PrivateFolder();
  ~PrivateFolder();
  PrivateFolder(const PrivateFolder&) = delete;
  PrivateFolder& operator=(const PrivateFolder&) = delete;

  /// Ends with the separator.
  const std::string& Path() const { return path_; }

 private:
  bool Make(const std::string& place);

  std::string path_;
  Descriptor descriptor_;  // locked: the folder is in use
};

}  // namespace repvolta
