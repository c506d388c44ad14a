#include "keeping/KeepWorkout.h"

#include <algorithm>
#include <cmath>
#include <exception>

#include "app/WorkoutFiles.h"
#include "base/FileNames.h"
#include "base/Text.h"
#include "keeping/Versions.h"

namespace repvolta {
namespace {

template <class Statement>
std::string FailureToTell(const ProgramState& state, Statement&& statement) {
  try {
    statement();
    return "";
  } catch (const std::exception& error) {
    if (state.Kept.isFailureTold) return "";
    return std::string("No earlier version of the workout is kept: ") + error.what();
  }
}

bool WasKeptBeforeAChangeOn(double day, const std::string& path) {
  const std::vector<Version> versions = VersionsOf(FileName(path));
  return std::ranges::any_of(versions, [&](const Version& version) {
    return version.name.before == BeforeWhat::kChange && std::floor(version.name.time) == day;
  });
}

}  // namespace

std::string KeepBeforeChange(ProgramState& state, double now) {
  if (TrimBlanks(state.WorkoutFileName).empty()) return "";
  const double day = std::floor(now);
  if (state.Kept.day == day && state.Kept.changed == state.WorkoutFileName) return "";
  return FailureToTell(state, [&] {
    const std::string path = PathOfWorkout(state);
    if (!WasKeptBeforeAChangeOn(day, path)) KeepVersion(path, BeforeWhat::kChange, now);
    state.Kept.changed = state.WorkoutFileName;
    state.Kept.day = day;
  });
}

std::string KeepBefore(BeforeWhat what, const std::string& path, const ProgramState& state,
                       double now) {
  return FailureToTell(state, [&] { KeepVersion(path, what, now); });
}

}  // namespace repvolta
