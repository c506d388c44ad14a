#pragma once

#include <string>
#include <string_view>

#include "base/Bytes.h"

namespace repvolta {

/// UTF-8 of bytes in Windows-1252. The five bytes that the code page leaves undefined (81, 8D, 8F,
/// 90, 9D) stand for the control characters of the same number, so every byte is a character.
std::string FromWindows1252(std::string_view bytes);

/// A UTF-8 text in Windows-1252, one byte a character, with "?" for each character that the code
/// page lacks. A text that is no UTF-8 is returned as it is.
std::string ToWindows1252(std::string_view text);

/// UTF-8 of a fixed-length text of a file, without its padding: bytes that are well-formed UTF-8
/// are taken as such, others as Windows-1252.
std::string DecodeField(std::span<const Byte> field);

/// Fills `field` with the text, padded with blanks, so that DecodeField gives the text back. It is
/// Windows-1252 when the code page has all characters and the bytes could not be mistaken for
/// UTF-8, else UTF-8. What does not fit is cut off between characters.
void EncodeField(std::string_view text, std::span<Byte> field);

/// What is left of the text after it went through a field of `size` bytes.
std::string CutToField(std::string_view text, std::size_t size);

}  // namespace repvolta
