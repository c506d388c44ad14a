#pragma once

#include <string>
#include <string_view>

namespace repvolta {

enum class LineKind { kPlain, kWarning, kError };

/// What the beginning of a progress line tells.
LineKind KindOfLine(std::string_view line);

/// Counts the progress lines that tell of problems.
class ProblemCount {
 public:
  void Add(LineKind kind);
  int Errors() const { return errors_; }
  int Warnings() const { return warnings_; }

  /// "2 errors, 1 warning"; "" when there are none.
  std::string Text() const;

 private:
  int errors_ = 0;
  int warnings_ = 0;
};

}  // namespace repvolta
