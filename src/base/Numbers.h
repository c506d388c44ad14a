#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace repvolta {

/// The decimal number at the start of a text: blanks, an optional sign, digits with an optional
/// point, an optional exponent; the rest is ignored. 0 when there is none, as in "nan", "inf" and
/// "0x10". Infinity when it is too large for a double. The same in every locale (quirk 22).
double LeadingNumber(std::string_view text);

/// The same with the number of bytes that it takes at the start of the text; 0 when there is none.
struct NumberAtStart {
  double value;
  std::size_t length;
};
NumberAtStart ReadLeadingNumber(std::string_view text);

/// A number as the instruction sentence shows it: at most 7 significant digits, no trailing zeros,
/// nothing before the point when the magnitude is below 1 (".5", "-.25"; quirk 4).
std::string NumberText(float value);
std::string NumberText(std::int16_t value);

/// A number as the lists of sets show it: at most 7 significant digits, "0.5".
std::string ListNumberText(float value);

/// A whole number with a blank in place of a minus sign: " 5", "-5" (quirk 20).
std::string StandardNumberText(std::int32_t value);

/// Seconds as minutes and seconds with at least two digits each: "05:20", "546:07".
std::string FormatTime(std::int16_t seconds);

/// The nearest whole number, halves to even (quirk 21). Throws std::overflow_error outside 16 bits.
std::int16_t RoundToInt16(double value);

/// `value` as a 16-bit number. Throws std::overflow_error when it does not fit.
std::int16_t CheckedInt16(std::int64_t value);

/// `value` as a single-precision number. Throws std::overflow_error when it is too large.
float CheckedSingle(double value);

/// The single-precision sum. Throws std::overflow_error when it is too large.
float AddSingles(float a, float b);

}  // namespace repvolta
