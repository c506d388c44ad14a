#pragma once

#include <string>
#include <vector>

#include "app/Records.h"
#include "editing/Preview.h"
#include "update/UpdatePlan.h"

namespace repvolta {

/// The texts of the plan; `workout` is the one that was planned. Nothing is changed.
Preview PreviewOf(const UpdatePlan& plan, const ExerciseSlots& workout);

/// "Squat, 3, sets": the words as they are heard.
std::string WordsText(const std::vector<Clip>& clips);

/// Where a problem of that kind is mended.
PreviewPlace PlaceOf(const PlannedProblem& problem);

}  // namespace repvolta
