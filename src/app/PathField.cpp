#include "app/PathField.h"

#include <stdexcept>

#include "base/Text.h"

namespace repvolta {

FixedText<256> PathField(const std::string& text) {
  if (!IsUtf8(text)) throw std::length_error("The path cannot be kept: it is not UTF-8.");
  FixedText<256> field(text);
  if (field.Text() != text) {
    throw std::length_error(
        "The path cannot be kept: it is longer than 256 characters, or blanks "
        "stand at its end.");
  }
  return field;
}

}  // namespace repvolta
