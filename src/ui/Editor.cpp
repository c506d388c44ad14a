#include "ui/Editor.h"

#include <algorithm>
#include <stdexcept>

namespace repvolta {

FixedText<256> PathField(const std::string& text) {
  if (!FitsField<256>(text)) {
    throw std::length_error(
        "The path cannot be kept: it is longer than 256 characters, or blanks "
        "stand at its end.");
  }
  return text;
}

int RowAfterRemoval(int removed, int rowsLeft) { return std::min(removed, rowsLeft - 1); }

}  // namespace repvolta
