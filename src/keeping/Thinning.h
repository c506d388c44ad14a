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
/// order of time. Kept are all of today and yesterday, the first of each day of the last 30 days
/// and the first of each seven days of the last year. Where these are larger than 2 MB together,
/// they are thinned further, so that those that stay lie the farther apart the older they are. The
/// newest one always stays. What bears a later time than now counts as of today, since the clock
/// may have been wrong.
std::vector<std::size_t> VersionsToDrop(const std::vector<AgedVersion>& versions, double now);

}  // namespace repvolta
