#include "keeping/Thinning.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <numeric>
#include <optional>
#include <set>

namespace repvolta {
namespace {

constexpr double kAllKept = 1;      // days before today
constexpr double kDaysKept = 30;    // so far back, one a day
constexpr double kWeeksKept = 365;  // so far back, one a week
constexpr double kDaysOfWeek = 7;
constexpr std::uint64_t kMostBytes = 2'000'000;

/// Where the time of a version falls: of those in one period, the first is kept.
struct Period {
  int length;  // days; 0 for a time of which everything is kept
  double number;

  auto operator<=>(const Period&) const = default;
};

/// Nothing for a time that is too long ago. Weeks are counted from the beginning of all days, not
/// from today, so that a version does not move to another week as it grows older.
std::optional<Period> PeriodOf(double time, double now) {
  const double day = std::floor(time);
  const double age = std::floor(now) - day;
  if (age <= kAllKept) return Period{0, 0};
  if (age <= kDaysKept) return Period{1, day};
  if (age <= kWeeksKept) return Period{7, std::floor(day / kDaysOfWeek)};
  return std::nullopt;
}

std::vector<bool> KeptByAge(const std::vector<AgedVersion>& versions, double now) {
  std::vector<bool> kept(versions.size(), false);
  std::set<Period> seen;
  for (std::size_t i = 0; i < versions.size(); ++i) {
    const auto period = PeriodOf(versions[i].time, now);
    kept[i] = period && (period->length == 0 || seen.insert(*period).second);
  }
  return kept;
}

/// How much is lost with the version at `index` of `kept`: the time between its neighbours,
/// compared with its age. The oldest one is lost last of all, since it reaches back farthest.
double LossOf(std::size_t index, const std::vector<std::size_t>& kept,
              const std::vector<AgedVersion>& versions, double now) {
  if (index == 0) return std::numeric_limits<double>::infinity();
  const double age = std::max(0.0, now - versions[kept[index]].time);
  return (versions[kept[index + 1]].time - versions[kept[index - 1]].time) / (age + kAllKept);
}

/// Leaves out of `kept`, indices into `versions`, what does not fit, but not the newest one.
void MakeFit(std::vector<std::size_t>& kept, const std::vector<AgedVersion>& versions, double now) {
  std::uint64_t bytes = 0;
  for (const std::size_t i : kept) bytes += versions[i].bytes;
  while (bytes > kMostBytes && kept.size() > 1) {
    std::size_t least = 0;
    for (std::size_t i = 1; i + 1 < kept.size(); ++i) {
      if (LossOf(i, kept, versions, now) < LossOf(least, kept, versions, now)) least = i;
    }
    bytes -= versions[kept[least]].bytes;
    kept.erase(kept.begin() + static_cast<std::ptrdiff_t>(least));
  }
}

}  // namespace

std::vector<std::size_t> VersionsToDrop(const std::vector<AgedVersion>& versions, double now) {
  const std::vector<bool> isKeptByAge = KeptByAge(versions, now);
  std::vector<std::size_t> kept;
  std::vector<std::size_t> all(versions.size());
  std::iota(all.begin(), all.end(), std::size_t{0});
  std::copy_if(all.begin(), all.end(), std::back_inserter(kept),
               [&](std::size_t i) { return isKeptByAge[i] || i + 1 == versions.size(); });
  MakeFit(kept, versions, now);
  std::vector<std::size_t> dropped;
  std::set_difference(all.begin(), all.end(), kept.begin(), kept.end(),
                      std::back_inserter(dropped));
  return dropped;
}

}  // namespace repvolta
