#pragma once

#include <filesystem>
#include <string>

#include "support/OrdinaryRights.h"

namespace repvolta {

/// While this object exists, the file or folder has only the rights `rights`: by default none, so
/// that it exists but cannot be read, not even by the superuser.
class UnreadableFile {
 public:
  explicit UnreadableFile(std::string path,
                          std::filesystem::perms rights = std::filesystem::perms::none)
      : path_(std::move(path)), mode_(std::filesystem::status(path_).permissions()) {
    std::filesystem::permissions(path_, rights);
  }
  ~UnreadableFile() { std::filesystem::permissions(path_, mode_); }
  UnreadableFile(const UnreadableFile&) = delete;
  UnreadableFile& operator=(const UnreadableFile&) = delete;

 private:
  std::string path_;
  std::filesystem::perms mode_;
  OrdinaryRights rights_;
};

}  // namespace repvolta
