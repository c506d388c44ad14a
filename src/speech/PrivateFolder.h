#pragma once

#include <string>

#include "base/Descriptor.h"

namespace repvolta {

/// All that ever lies in a private folder, but for their working files.
inline constexpr const char* kSpokenTextFile = "text";
inline constexpr const char* kSpokenSoundFile = "sound.wav";

/// A folder that only this user can enter, in the folder for temporary files; deleted with all that
/// is in it. What killed programs left of such folders is deleted as well, and nothing that only
/// has such a name.
class PrivateFolder {
 public:
  /// Throws FileError.
  PrivateFolder();
  ~PrivateFolder();
  PrivateFolder(const PrivateFolder&) = delete;
  PrivateFolder& operator=(const PrivateFolder&) = delete;

  /// With the separator at its end.
  const std::string& Path() const { return path_; }

 private:
  bool Make(const std::string& place);

  std::string path_;
  Descriptor descriptor_;  // locked: the folder is in use
};

}  // namespace repvolta
