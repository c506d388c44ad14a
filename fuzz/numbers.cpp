#include "base/Numbers.h"

#include <bit>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <locale.h>
#include <optional>

#include "base/Text.h"

#include "support/Cost.h"
#include "support/Fuzz.h"

// The input is the text of a number, and the bits of some numbers. The program must read the same
// number as the C library, and a shown number must be read back.

namespace repvolta {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

std::size_t DigitsFrom(std::string_view text, std::size_t at) {
  std::size_t end = at;
  while (end < text.size() && IsDigit(text[end])) ++end;
  return end - at;
}

/// The characters of an exponent at that place; 0 when there is none.
std::size_t ExponentByRule(std::string_view text, std::size_t at) {
  if (at >= text.size() || (text[at] != 'e' && text[at] != 'E')) return 0;
  std::size_t digits = at + 1;
  if (digits < text.size() && (text[digits] == '-' || text[digits] == '+')) ++digits;
  const std::size_t count = DigitsFrom(text, digits);
  return count > 0 ? digits + count - at : 0;
}

/// The characters of the number at the start of a trimmed text; 0 when there is none.
std::size_t LengthByRule(std::string_view text) {
  std::size_t at = text.starts_with('-') || text.starts_with('+') ? 1 : 0;
  const std::size_t whole = DigitsFrom(text, at);
  at += whole;
  std::size_t decimals = 0;
  if (at < text.size() && text[at] == '.') {
    decimals = DigitsFrom(text, at + 1);
    if (whole + decimals > 0) at += 1 + decimals;
  }
  if (whole + decimals == 0) return 0;
  return at + ExponentByRule(text, at);
}

double NumberByRule(std::string_view text) {
  static const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
  const std::string_view trimmed = TrimBlanks(text);
  const std::string number(trimmed.substr(0, LengthByRule(trimmed)));
  return number.empty() ? 0 : strtod_l(number.c_str(), nullptr, plain);
}

bool IsTiny(double value) { return std::abs(value) < std::numeric_limits<double>::min(); }

void CompareReading(std::string_view text) {
  double value = 0;
  {
    const LinearCost cost(text.size());
    value = LeadingNumber(text);
  }
  const double expected = NumberByRule(text);
  Require(!std::isnan(value), "no text is not a number");
  // Below the smallest normal number a value may be 0.
  Require(value == expected || (value == 0 && IsTiny(expected)), "a text is read as the rule says");
}

void RequireShown(float value) {
  if (!std::isfinite(value)) return;
  const std::string shown = ListNumberText(value);
  const float read = CheckedSingle(LeadingNumber(shown));
  Require(ListNumberText(read) == shown, "a number shown, read and shown again is the same");
  const double difference = std::abs(LeadingNumber(shown) - double{value});
  Require(difference <= std::abs(double{value}) * 5.0001e-7, "seven digits are kept");
  Require(LeadingNumber(NumberText(value)) == LeadingNumber(shown), "a sentence says the same");
}

void RequireTime(std::int16_t seconds) {
  const std::string text = FormatTime(seconds);
  const std::size_t colon = text.find(':');
  Require(colon != std::string::npos && text.size() - colon == 3, "two digits of seconds");
  const double sum =
      LeadingNumber(text.substr(0, colon)) * 60 + LeadingNumber(text.substr(colon + 1));
  Require(sum == seconds, "minutes and seconds make up the time");
  Require(LeadingNumber(StandardNumberText(seconds)) == seconds, "a whole number is read back");
  Require(LeadingNumber(NumberText(seconds)) == seconds, "a whole number is read back");
}

/// The value of `convert`, or nothing when it refuses.
template <class Convert>
auto Try(Convert convert) -> std::optional<decltype(convert())> {
  try {
    return convert();
  } catch (const std::overflow_error&) {
    return std::nullopt;
  }
}

void RequireChecked(double value) {
  const auto rounded = Try([&] { return RoundToInt16(value); });
  const double nearest = std::nearbyint(value);
  Require(rounded.has_value() == (nearest >= -32768 && nearest <= 32767), "16 bits are checked");
  if (rounded) Require(*rounded == nearest, "the nearest whole number");
  const auto single = Try([&] { return CheckedSingle(value); });
  if (single) Require(std::isfinite(*single), "a number is finite");
}

template <class Number, class Bits>
Number Take(FuzzInput& input) {
  Bits bits = 0;
  for (std::size_t i = 0; i < sizeof bits; ++i)
    bits = static_cast<Bits>(bits << 8 | input.TakeByte());
  return std::bit_cast<Number>(bits);
}

}  // namespace
}  // namespace repvolta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace repvolta;
  const std::string text = AsText({data, size});
  CompareReading(text);
  RequireChecked(LeadingNumber(text));
  FuzzInput input(data, size);
  const auto single = Take<float, std::uint32_t>(input);
  RequireShown(single);
  RequireTime(Take<std::int16_t, std::uint16_t>(input));
  RequireChecked(single);
  RequireChecked(Take<double, std::uint64_t>(input));
  return 0;
}
