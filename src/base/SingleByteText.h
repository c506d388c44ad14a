#pragma once

#include <string>
#include <string_view>

#include "base/Bytes.h"

namespace repvolta {

/// Converts Windows-1252 to UTF-8. The five bytes that the code page leaves undefined (81, 8D, 8F,
/// 90, 9D) become the control characters with the same number, so every byte is a character.
std::string FromWindows1252(std::string_view bytes);

/// The text itself when it is UTF-8, else read as Windows-1252, as disks whose names are UTF-16
/// keep such bytes.
std::string AsUtf8(const std::string& text);

/// Converts UTF-8 to Windows-1252, with "?" for each character that the code page lacks. A text
/// that is not UTF-8 is returned unchanged.
std::string ToWindows1252(std::string_view text);

/// The text of a fixed-length field of a file, as UTF-8 without the padding. Well-formed UTF-8 is
/// taken as it is; other bytes are read as Windows-1252.
std::string DecodeField(std::span<const Byte> field);

/// Fills `field` with the text, padded with blanks, so that DecodeField returns the same text. The
/// bytes are Windows-1252 if that has all the characters and DecodeField would not take them for
/// UTF-8, else UTF-8. A text that is too long is cut between characters.
void EncodeField(std::string_view text, std::span<Byte> field);

/// The text as it comes back from a field of `size` bytes.
std::string CutToField(std::string_view text, std::size_t size);

}  // namespace repvolta
