#pragma once

#include <string>

#include "app/ProgramState.h"
#include "keeping/VersionName.h"

namespace repvolta {

// The file of a workout is about to be replaced or deleted: what it holds is kept as a version. A
// version is never worth an edit or an update, so nothing is thrown: the result says why it could
// not be kept, until a caller sets Kept.isFailureTold, and is "" otherwise. The program directory
// must be current; `now` is the time as base/Days.h counts it.

/// Before the first change of a day to the workout in memory; does nothing when there is none.
std::string KeepBeforeChange(ProgramState& state, double now);

/// Before anything else.
std::string KeepBefore(BeforeWhat what, const std::string& path, const ProgramState& state,
                       double now);

}  // namespace repvolta
