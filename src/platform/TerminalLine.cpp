#include "platform/TerminalLine.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include "base/Descriptor.h"
#include "base/Text.h"

namespace repvolta {
namespace {

constexpr std::size_t kUsualWidth = 80;

std::size_t WidthOf(int descriptor) {
  struct winsize size{};
  if (ioctl(descriptor, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return kUsualWidth;
  return size.ws_col;
}

}  // namespace

TerminalLine::TerminalLine(int descriptor)
    : descriptor_(descriptor), isThere_(isatty(descriptor) != 0) {}

void TerminalLine::Show(const std::string& text) {
  if (!isThere_ || text == shown_) return;
  Rewrite(text);
  shown_ = text;
}

void TerminalLine::Clear() { Show(""); }

void TerminalLine::Rewrite(const std::string& text) const {
  // In the last column, the terminal would begin another line.
  const std::size_t columns = WidthOf(descriptor_) - 1;
  const std::string line =
      "\r" + std::string(columns, ' ') + "\r" + CutToColumns(ShownOnOneLine(text), columns);
  // A terminal that is gone has nothing to show.
  static_cast<void>(Uninterrupted([&] { return write(descriptor_, line.data(), line.size()); }));
}

}  // namespace repvolta
