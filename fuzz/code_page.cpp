#include <algorithm>

#include "base/SingleByteText.h"
#include "base/Text.h"

#include "support/Cost.h"
#include "support/Fuzz.h"

// The input is the size of a field, then a text. It must come back unchanged from the code page and
// from a field.

namespace repvolta {
namespace {

void ThroughTheCodePage(const std::string& bytes) {
  const std::string text = FromWindows1252(bytes);
  Require(IsUtf8(text), "every byte is a character");
  Require(ToWindows1252(text) == bytes, "every byte comes back");
  const std::string single = ToWindows1252(bytes);
  if (!IsUtf8(bytes)) {
    Require(single == bytes, "what is no UTF-8 stays");
    return;
  }
  const auto starts = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; };
  Require(single.size() == static_cast<std::size_t>(std::ranges::count_if(bytes, starts)),
          "one byte a character");
}

void ThroughAField(const std::string& text, std::size_t size) {
  Bytes field(size);
  EncodeField(text, field);
  const std::string back = DecodeField(field);
  const std::string cut = CutToField(text, size);
  if (!IsUtf8(text)) return;
  Require(back == cut, "a field gives back what fits");
  Require(text.starts_with(cut), "what does not fit is cut off at the end");
  Require(CutToField(cut, size) == cut, "what fits is not cut again");
  Bytes again(size);
  EncodeField(cut, again);
  Require(DecodeField(again) == cut, "what a field gave back, it can hold again");
  const bool fitsWhole = text.size() <= size;
  if (fitsWhole) Require(cut == TrimTrailingBlanks(text), "a short text is kept whole");
}

void OutOfAField(std::span<const Byte> field) {
  const std::string text = DecodeField(field);
  Require(IsUtf8(text), "what a field holds is a text");
  Bytes again(field.size());
  EncodeField(text, again);
  Require(DecodeField(again) == text, "what was in a field, a field can hold");
}

void CutAndFold(const std::string& text, std::size_t size) {
  const std::string_view cut = CutUtf8(text, size);
  Require(text.starts_with(cut) && cut.size() <= size, "a cut text is a beginning");
  if (IsUtf8(text)) {
    Require(IsUtf8(cut), "a text is cut between characters");
    Require(text.size() <= size || cut.size() + 4 > size, "no more is cut than one character");
  }
  const std::u32string folded = FoldCase(text);
  Require(folded.size() <= text.size(), "no more characters than bytes");
  std::string upper = text;
  std::ranges::transform(upper, upper.begin(), [](char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  });
  Require(FoldCase(upper) == folded, "capitals are folded");
}

}  // namespace
}  // namespace repvolta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace repvolta;
  FuzzInput input(data, size);
  const std::size_t fieldSize = input.TakeByte();
  const std::string text = AsText(input.Rest());
  const LinearCost cost(size);
  ThroughTheCodePage(text);
  ThroughAField(text, fieldSize);
  OutOfAField(input.Rest());
  CutAndFold(text, fieldSize);
  return 0;
}
