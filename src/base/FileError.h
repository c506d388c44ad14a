#pragma once

#include <stdexcept>
#include <string>

namespace repvolta {

/// A file or folder that could not be used. what() names it and says why, fit for a message box:
/// "workouts/Monday.RPV could not be written: No space left on device".
class FileError : public std::runtime_error {
 public:
  FileError(const std::string& path, const std::string& failure, const std::string& reason)
      : FileError(path, failure, reason, 0) {}

  /// The text of the system error `error` (an errno value) is the reason.
  FileError(const std::string& path, const std::string& failure, int error);

  /// Why, without the path: "No space left on device".
  const std::string& Reason() const { return reason_; }

  /// The errno value, or 0 when the system did not fail.
  int Error() const { return error_; }

 private:
  FileError(const std::string& path, const std::string& failure, const std::string& reason,
            int error)
      : std::runtime_error(path + " " + failure + ": " + reason), reason_(reason), error_(error) {}

  std::string reason_;
  int error_;
};

}  // namespace repvolta
