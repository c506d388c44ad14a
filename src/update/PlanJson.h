#pragma once

#include <string>

#include "update/DryRun.h"

namespace repvolta {

/// The plans as one JSON document in UTF-8, as docs/formats/plan.md describes it, with a line feed
/// at the end.
std::string PlanJson(const DryRun& run);

}  // namespace repvolta
