#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "app/Records.h"
#include "editing/ScreenTexts.h"
#include "platform/Clock.h"

namespace repvolta {

// What the commands keep of an answer in an input box, and what the box says below its field. An
// answer that changes nothing gives nothing; a number that does not fit is a std::overflow_error,
// whose text can be shown.

/// The number in a column of the sets. A frequency must leave days that can be shown.
std::optional<float> SetNumberOf(std::string_view answer, SetColumn column, const Clock& clock);

/// The value of a new set: 0 without a number, also when the box was cancelled (quirk 91).
float NewSetValueOf(std::string_view answer);

/// In minutes, rounded.
std::optional<std::int16_t> DefaultTimeOf(std::string_view answer);

/// Minutes, as seconds; only those above 0.
std::optional<std::int16_t> TargetTimeOf(std::string_view answer);

/// The name as the exercise's field holds it.
std::optional<std::string> ExerciseNameOf(std::string_view answer);

/// The trimmed name. Throws std::invalid_argument when no file can have it.
std::optional<std::string> WorkoutNameOf(std::string_view answer);

}  // namespace repvolta
