#pragma once

#include <cstdint>
#include <vector>

namespace repvolta {

/// A kept version of one workout.
struct AgedVersion {
  double time;  // as base/Days.h counts
  std::uint64_t bytes;
};

/// Which versions of a workout are no longer needed, as indices into `versions`, which are in the
/// order of time. Kept are all of today and yesterday, the first of each day of the last 30 days,
/// the first of each seven days of the last year, and of these, from the newest on, as many as fit
/// in 2 MB; the newest one always. What bears a later time than now counts as of today, since the
/// clock may have been wrong.
std::vector<std::size_t> VersionsToDrop(const std::vector<AgedVersion>& versions, double now);

}  // namespace repvolta
