#pragma once

#include <cstdint>
#include <string>

#include "update/DryRun.h"

namespace repvolta {

/// The plans for people, in lines: what will go wrong on top, then exercise by exercise what grows,
/// the sentence and the files, and at the end the totals against the room. No line can control a
/// terminal. The same in every locale.
std::string PlanText(const DryRun& run);

/// Minutes and seconds as FormatTime has them, of any length: "03:21"; "--:--" when the time is not
/// known.
std::string PlayTimeText(std::int64_t seconds);

/// Millions of bytes, rounded up to a tenth: "4.8 MB".
std::string SizeText(std::uint64_t bytes);

/// A day in ISO 8601: "2026-11-22"; "" for one that no calendar has.
std::string IsoDayText(double day);

}  // namespace repvolta
