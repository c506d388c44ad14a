#pragma once

#include <gtest/gtest.h>
#include <pty.h>
#include <string>
#include <sys/ioctl.h>
#include <unistd.h>
#include <vector>

#include "base/Descriptor.h"

namespace repvolta {

/// A terminal without a screen: keeps what programs write to it.
class PseudoTerminal {
 public:
  explicit PseudoTerminal(unsigned short columns) {
    struct winsize size{};
    size.ws_col = columns;
    int master = -1;
    int slave = -1;
    EXPECT_EQ(openpty(&master, &slave, nullptr, nullptr, &size), 0);
    master_ = Descriptor(master);
    slave_ = Descriptor(slave);
  }

  int Number() const { return slave_.Number(); }

  void Resize(unsigned short columns) const {
    struct winsize size{};
    size.ws_col = columns;
    EXPECT_EQ(ioctl(slave_.Number(), TIOCSWINSZ, &size), 0);
  }

  /// The program's side is closed here; what is still written to it elsewhere is read to its end.
  std::string ReadToEnd() {
    slave_.Close();
    std::string text;
    char block[4096];
    while (true) {
      const ssize_t count =
          Uninterrupted([&] { return read(master_.Number(), block, sizeof block); });
      if (count <= 0) return text;
      text.append(block, static_cast<std::size_t>(count));
    }
  }

 private:
  Descriptor master_;
  Descriptor slave_;
};

/// The lines that a terminal shows after the text, without blanks at their ends.
inline std::vector<std::string> ShownLines(const std::string& text) {
  std::vector<std::string> lines(1);
  std::size_t column = 0;
  for (const char byte : text) {
    if (byte == '\r') {
      column = 0;
    } else if (byte == '\n') {
      lines.emplace_back();
    } else {
      std::string& line = lines.back();
      if (line.size() <= column) line.resize(column + 1, ' ');
      line[column++] = byte;
    }
  }
  for (std::string& line : lines) line.erase(line.find_last_not_of(' ') + 1);
  return lines;
}

}  // namespace repvolta
