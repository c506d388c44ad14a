#pragma once

#include <string_view>

namespace repvolta {

/// Receives the lines that an update shows to the person.
class ProgressLog {
 public:
  virtual ~ProgressLog() = default;

  /// Appends one line, which is visible when the call returns. Problems begin "ERROR" or
  /// "WARNING".
  virtual void AddLineToUpdateList(std::string_view line) = 0;
};

}  // namespace repvolta
