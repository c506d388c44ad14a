#pragma once

#include <bitset>

#include "app/OptionLines.h"

namespace repvolta {

/// The days of the week on which a person makes updates; 0 is Monday.
using UpdateDays = std::bitset<7>;

inline constexpr UpdateDays kDaily{0b1111111};

/// The days that the options name. Daily when they name none, since somebody who never updates
/// would not ask.
UpdateDays ChosenUpdateDays(const OptionLines& options);

void PutUpdateDays(OptionLines& options, const UpdateDays& days);

}  // namespace repvolta
