#pragma once

#include <concepts>
#include <string>
#include <string_view>

namespace repvolta {

/// `text` without the blanks (U+0020 only) at both ends.
std::string_view TrimBlanks(std::string_view text);

/// `text` without the blanks (U+0020 only) at its end.
std::string_view TrimTrailingBlanks(std::string_view text);

/// True when the bytes are well-formed UTF-8 (RFC 3629: no surrogates, no overlong forms).
bool IsUtf8(std::string_view bytes);

/// The longest beginning of a UTF-8 text that fits `limit` bytes without splitting a character.
std::string_view CutUtf8(std::string_view text, std::size_t limit);

/// The text as one line that cannot control a terminal: "?" replaces each control character (U+0000
/// to U+001F, U+007F to U+009F in UTF-8).
std::string ShownOnOneLine(std::string_view text);

/// The beginning of the text that a terminal shows on `columns` columns, of which some characters
/// take two and some none; "?" replaces bytes that are not UTF-8 and what cannot be shown.
std::string CutToColumns(std::string_view text, std::size_t columns);

/// The text without differences of case, to compare and sort names; bytes that are not UTF-8 stay
/// as they are. The same in every locale.
std::u32string FoldCase(std::string_view text);

/// The same, and letters with one capital are one letter, as disks without case have them.
std::u32string FoldCaseFully(std::string_view text);

/// "1 clip is", "2 clips are"; without a word for several, that for one with an "s".
std::string Counted(std::integral auto count, const std::string& one,
                    const std::string& several = "") {
  return std::to_string(count) + " " + (count == 1 ? one : several.empty() ? one + "s" : several);
}

}  // namespace repvolta
