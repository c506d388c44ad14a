#include "base/SingleByteText.h"

#include <algorithm>
#include <iconv.h>
#include <optional>
#include <system_error>

#include "base/Text.h"

namespace repvolta {
namespace {

/// A conversion between two character sets of the system's library.
class Converter {
 public:
  Converter(const char* to, const char* from) : handle_(iconv_open(to, from)) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): iconv_open returns -1 on failure.
    if (handle_ == reinterpret_cast<iconv_t>(-1)) {
      throw std::system_error(errno, std::generic_category(), "no conversion to the code page");
    }
  }
  ~Converter() { iconv_close(handle_); }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;

  /// One character converted, or nothing when the target lacks it.
  std::optional<std::string> Convert(std::string_view character) {
    char input[4];
    char output[4];
    const std::size_t size = character.copy(input, sizeof input);
    char* from = input;
    char* to = output;
    std::size_t inputLeft = size;
    std::size_t outputLeft = sizeof output;
    const bool isRead = iconv(handle_, &from, &inputLeft, &to, &outputLeft) == 0 && inputLeft == 0;
    // iconv drops tag characters (U+E0000 to U+E007F) and reports no error.
    if (!isRead || to == output) {
      iconv(handle_, nullptr, nullptr, nullptr, nullptr);
      return std::nullopt;
    }
    return std::string(output, to);
  }

 private:
  iconv_t handle_;
};

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return (c & 0x80) == 0; });
}

bool IsUndefined(unsigned char byte) {
  return byte == 0x81 || byte == 0x8D || byte == 0x8F || byte == 0x90 || byte == 0x9D;
}

/// The undefined byte that a control character stands for, if it is one of those.
std::optional<char> UndefinedByte(std::string_view character) {
  if (character.size() != 2 || character[0] != '\xC2') return std::nullopt;
  const auto byte = static_cast<unsigned char>(character[1]);
  return IsUndefined(byte) ? std::optional(character[1]) : std::nullopt;
}

std::size_t CharacterSize(std::string_view text) {
  std::size_t size = 1;
  while (size < text.size() && (static_cast<unsigned char>(text[size]) & 0xC0U) == 0x80) ++size;
  return size;
}

/// Converts UTF-8 to Windows-1252. A character that the code page lacks becomes `substitute`; if
/// there is no substitute, the whole text has no result.
std::optional<std::string> Encode(std::string_view text, std::optional<char> substitute) {
  Converter converter("WINDOWS-1252", "UTF-8");
  std::string bytes;
  while (!text.empty()) {
    const std::string_view character = text.substr(0, CharacterSize(text));
    text.remove_prefix(character.size());
    if (const auto undefined = UndefinedByte(character)) {
      bytes += *undefined;
    } else if (const auto converted = converter.Convert(character)) {
      bytes += *converted;
    } else if (substitute) {
      bytes += *substitute;
    } else {
      return std::nullopt;
    }
  }
  return bytes;
}

/// The at most `size` bytes with which a field of a file holds the text.
std::string FieldBytes(std::string_view text, std::size_t size) {
  if (IsAscii(text) || !IsUtf8(text)) return std::string(text.substr(0, size));
  if (const auto bytes = Encode(text, std::nullopt)) {
    const std::string_view kept = TrimTrailingBlanks(std::string_view(*bytes).substr(0, size));
    if (IsAscii(kept) || !IsUtf8(kept)) return std::string(kept);
  }
  return std::string(CutUtf8(text, size));
}

}  // namespace

std::string FromWindows1252(std::string_view bytes) {
  Converter converter("UTF-8", "WINDOWS-1252");
  std::string text;
  for (const char byte : bytes) {
    if (IsUndefined(static_cast<unsigned char>(byte))) {
      text += {'\xC2', byte};
    } else {
      text += converter.Convert({&byte, 1}).value_or("?");
    }
  }
  return text;
}

std::string AsUtf8(const std::string& text) { return IsUtf8(text) ? text : FromWindows1252(text); }

std::string ToWindows1252(std::string_view text) {
  if (IsAscii(text) || !IsUtf8(text)) return std::string(text);
  return *Encode(text, '?');
}

std::string DecodeField(std::span<const Byte> field) {
  const std::string bytes = AsText(field);
  const std::string_view text = TrimTrailingBlanks(bytes);
  return IsUtf8(text) ? std::string(text) : FromWindows1252(text);
}

void EncodeField(std::string_view text, std::span<Byte> field) {
  const std::string bytes = FieldBytes(TrimTrailingBlanks(text), field.size());
  const auto end = std::copy(bytes.begin(), bytes.end(), field.begin());
  std::fill(end, field.end(), Byte{' '});
}

std::string CutToField(std::string_view text, std::size_t size) {
  if (text.size() <= size) return std::string(TrimTrailingBlanks(text));
  Bytes field(size);
  EncodeField(text, field);
  return DecodeField(field);
}

}  // namespace repvolta
