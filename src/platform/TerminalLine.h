#pragma once

#include <string>

namespace repvolta {

/// The last line of a terminal, which is rewritten again and again. Where there is no terminal,
/// nothing is ever written.
class TerminalLine {
 public:
  /// `descriptor` is an open file, of which this object does not become the owner.
  explicit TerminalLine(int descriptor);
  TerminalLine(const TerminalLine&) = delete;
  TerminalLine& operator=(const TerminalLine&) = delete;

  /// The line is empty again.
  ~TerminalLine() { Clear(); }

  bool IsThere() const { return isThere_; }

  /// Replaces the line by `text`, cut to the width that the terminal has now.
  void Show(const std::string& text);

  /// Makes room for a line that another stream writes to the same terminal.
  void Clear();

 private:
  void Rewrite(const std::string& text) const;

  int descriptor_;
  bool isThere_;
  std::string shown_;
};

}  // namespace repvolta
