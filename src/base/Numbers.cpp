#include "base/Numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>
#include <stdexcept>

#include "base/Text.h"

namespace repvolta {
namespace {

constexpr int kSignificantDigits = 7;  // of single precision

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// True when the text, whose sign was removed, starts with a plain decimal number.
bool StartsNumber(std::string_view text) {
  if (text.starts_with('.')) text.remove_prefix(1);
  return !text.empty() && IsDigit(text[0]);
}

/// The power of ten that the first non-zero digit stands for.
std::ptrdiff_t PowerOfTen(std::string_view digits) {
  const std::size_t point = std::min(digits.find('.'), digits.size());
  const std::size_t first = std::min(digits.find_first_of("123456789"), digits.size());
  const auto power = static_cast<std::ptrdiff_t>(point) - static_cast<std::ptrdiff_t>(first);
  return first < point ? power - 1 : power;
}

/// The number after the "e"; one that is far too large only has to stay so.
std::ptrdiff_t Exponent(std::string_view text) {
  constexpr std::ptrdiff_t kFarTooLarge = std::numeric_limits<std::ptrdiff_t>::max() / 2;
  if (text.starts_with('+')) text.remove_prefix(1);
  std::ptrdiff_t exponent = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), exponent);
  if (error == std::errc::result_out_of_range) return text[0] == '-' ? -kFarTooLarge : kFarTooLarge;
  return std::clamp(exponent, -kFarTooLarge, kFarTooLarge);
}

/// The value of a number that is too large or too small for a double.
double OutOfRange(std::string_view number) {
  const std::size_t e = std::min(number.find_first_of("eE"), number.size());
  std::ptrdiff_t power = PowerOfTen(number.substr(0, e));
  if (e < number.size()) power += Exponent(number.substr(e + 1));
  return power < 0 ? 0.0 : std::numeric_limits<double>::infinity();
}

std::string TwoDigits(int value) {
  const std::string digits = std::to_string(std::abs(value));
  return (value < 0 ? "-" : "") + std::string(digits.size() < 2 ? "0" : "") + digits;
}

}  // namespace

double LeadingNumber(std::string_view text) { return ReadLeadingNumber(text).value; }

NumberAtStart ReadLeadingNumber(std::string_view text) {
  const char* const start = text.data();
  text = TrimBlanks(text);
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  if (!StartsNumber(text)) return {.value = 0, .length = 0};
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error == std::errc::result_out_of_range) value = OutOfRange({text.data(), end});
  return {.value = negative ? -value : value, .length = static_cast<std::size_t>(end - start)};
}

std::string ListNumberText(float value) {
  if (value == 0) return "0";
  std::array<char, 32> digits;
  const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                          std::chars_format::general, kSignificantDigits);
  return {digits.data(), end};
}

std::string NumberText(float value) {
  std::string text = ListNumberText(value);
  const std::size_t zero = text.find_first_not_of('-');
  if (text.substr(zero).starts_with("0.")) text.erase(zero, 1);
  return text;
}

std::string NumberText(std::int16_t value) { return std::to_string(value); }

std::string StandardNumberText(std::int32_t value) {
  return (value < 0 ? "" : " ") + std::to_string(value);
}

std::string FormatTime(std::int16_t seconds) {
  const int minutes = (seconds - (seconds < 0 ? 59 : 0)) / 60;
  return TwoDigits(minutes) + ":" + TwoDigits(seconds - minutes * 60);
}

std::int16_t RoundToInt16(double value) {
  const double rounded = std::nearbyint(value);
  if (!(rounded >= std::numeric_limits<std::int16_t>::min() &&
        rounded <= std::numeric_limits<std::int16_t>::max())) {
    throw std::overflow_error("The number is too large");
  }
  return static_cast<std::int16_t>(rounded);
}

std::int16_t CheckedInt16(std::int64_t value) {
  if (value < std::numeric_limits<std::int16_t>::min() ||
      value > std::numeric_limits<std::int16_t>::max()) {
    throw std::overflow_error("The number is too large");
  }
  return static_cast<std::int16_t>(value);
}

float CheckedSingle(double value) {
  const auto single = static_cast<float>(value);
  if (!std::isfinite(single)) throw std::overflow_error("The number is too large");
  return single;
}

float AddSingles(float a, float b) {
  const float sum = a + b;
  if (std::isinf(sum) && std::isfinite(a) && std::isfinite(b)) {
    throw std::overflow_error("The number is too large");
  }
  return sum;
}

}  // namespace repvolta
