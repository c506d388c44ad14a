#include "base/Text.h"

#include <locale.h>
#include <optional>
#include <wchar.h>
#include <wctype.h>

namespace repvolta {
namespace {

struct Character {
  char32_t code;
  std::size_t size;  // bytes
};

int TrailingBytes(unsigned char lead) {
  if (lead < 0x80) return 0;
  if (lead >= 0xC2 && lead <= 0xDF) return 1;
  if (lead >= 0xE0 && lead <= 0xEF) return 2;
  if (lead >= 0xF0 && lead <= 0xF4) return 3;
  return -1;
}

bool IsScalar(char32_t code, int trailing) {
  constexpr char32_t kLeastOfLength[] = {0, 0x80, 0x800, 0x10000};
  return code >= kLeastOfLength[trailing] && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
}

/// The character at the start of `text`, or nothing when the bytes are not UTF-8.
std::optional<Character> FirstCharacter(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text[0]);
  const int trailing = TrailingBytes(lead);
  if (trailing < 0 || text.size() <= static_cast<std::size_t>(trailing)) return std::nullopt;
  char32_t code = trailing == 0 ? lead : lead & (0x3FU >> trailing);
  for (int i = 1; i <= trailing; ++i) {
    const auto next = static_cast<unsigned char>(text[static_cast<std::size_t>(i)]);
    if ((next & 0xC0U) != 0x80) return std::nullopt;
    code = code << 6 | (next & 0x3FU);
  }
  if (!IsScalar(code, trailing)) return std::nullopt;
  return Character{code, static_cast<std::size_t>(trailing) + 1};
}

locale_t NeutralLocale() {
  static const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  return locale;
}

}  // namespace

std::string_view TrimBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string_view::npos ? std::string_view()
                                         : TrimTrailingBlanks(text.substr(first));
}

std::string_view TrimTrailingBlanks(std::string_view text) {
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

bool IsUtf8(std::string_view bytes) {
  while (!bytes.empty()) {
    const auto character = FirstCharacter(bytes);
    if (!character) return false;
    bytes.remove_prefix(character->size);
  }
  return true;
}

std::string_view CutUtf8(std::string_view text, std::size_t limit) {
  if (text.size() <= limit) return text;
  std::size_t end = limit;
  while (end > 0 && limit - end < 4 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80) {
    --end;
  }
  return text.substr(0, end);
}

std::string ShownOnOneLine(std::string_view text) {
  constexpr unsigned char kFirstOfTwo = 0xC2;  // of U+0080 to U+009F
  std::string line;
  line.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto code = static_cast<unsigned char>(text[i]);
    const int next = i + 1 < text.size() ? static_cast<unsigned char>(text[i + 1]) : 0;
    const bool isTwoBytes = code == kFirstOfTwo && 0x80 <= next && next < 0xA0;
    const bool isControl = code < 0x20 || code == 0x7F || isTwoBytes;
    line.push_back(isControl ? '?' : text[i]);
    if (isTwoBytes) ++i;
  }
  return line;
}

std::string CutToColumns(std::string_view text, std::size_t columns) {
  const locale_t before = uselocale(NeutralLocale());
  std::string cut;
  while (!text.empty()) {
    const auto character = FirstCharacter(text);
    const int width = character ? wcwidth(static_cast<wchar_t>(character->code)) : -1;
    const std::size_t size = character ? character->size : 1;
    const std::size_t taken = width < 0 ? 1 : static_cast<std::size_t>(width);
    if (taken > columns) break;
    columns -= taken;
    cut.append(width < 0 ? "?" : text.substr(0, size));
    text.remove_prefix(size);
  }
  uselocale(before);
  return cut;
}

std::u32string FoldCase(std::string_view text) {
  std::u32string folded;
  while (!text.empty()) {
    const auto character = FirstCharacter(text);
    if (character) {
      folded +=
          static_cast<char32_t>(towlower_l(static_cast<wint_t>(character->code), NeutralLocale()));
    } else {
      folded += static_cast<char32_t>(0x110000U + static_cast<unsigned char>(text[0]));
    }
    text.remove_prefix(character ? character->size : 1);
  }
  return folded;
}

std::u32string FoldCaseFully(std::string_view text) {
  std::u32string folded = FoldCase(text);
  for (char32_t& character : folded) {
    const wint_t upper = towupper_l(static_cast<wint_t>(character), NeutralLocale());
    character = static_cast<char32_t>(towlower_l(upper, NeutralLocale()));
  }
  return folded;
}

}  // namespace repvolta
