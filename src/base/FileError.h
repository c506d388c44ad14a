#pragma once

#include <stdexcept>
#include <string>

namespace repvolta {

/// A file or folder could not be used. what() names it and says why, as a message box shows it:
/// "workouts/Monday.RPV could not be written: No space left on device".
class FileError : public std::runtime_error {
 public:
  FileError(const std::string& path, const std::string& failure, const std::string& reason)
      : FileError(path, failure, reason, 0) {}

  /// The reason is the system's text for `error`, an errno value.
  FileError(const std::string& path, const std::string& failure, int error);

  /// Why, without the path: "No space left on device".
  const std::string& Reason() const { return reason_; }

  /// The errno value; 0 when no system call failed.
  int Error() const { return error_; }

 private:
  FileError(const std::string& path, const std::string& failure, const std::string& reason,
            int error)
      : std::runtime_error(path + " " + failure + ": " + reason), reason_(reason), error_(error) {}

  std::string reason_;
  int error_;
};

}  // namespace repvolta
