#include "keeping/Thinning.h"

#include <algorithm>
#include <cmath>
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

}  // namespace

std::vector<std::size_t> VersionsToDrop(const std::vector<AgedVersion>& versions, double now) {
  std::vector<bool> kept = KeptByAge(versions, now);
  std::uint64_t bytes = 0;
  std::vector<std::size_t> dropped;
  for (std::size_t i = versions.size(); i-- > 0;) {
    const bool isNewest = i + 1 == versions.size();
    if (kept[i]) bytes += versions[i].bytes;
    if (!isNewest && (!kept[i] || bytes > kMostBytes)) dropped.push_back(i);
  }
  std::reverse(dropped.begin(), dropped.end());
  return dropped;
}

}  // namespace repvolta
