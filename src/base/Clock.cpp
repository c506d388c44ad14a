#include "base/Clock.h"

#include <chrono>
#include <ctime>

namespace repvolta {

double DateOf(int year, int month, int day) {
  using namespace std::chrono;
  constexpr sys_days kDayZero = std::chrono::year{1899} / 12 / 30;
  const sys_days date = std::chrono::year{year} / month / day;
  return static_cast<double>((date - kDayZero).count());
}

double SystemClock::Now() const {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  const double seconds = (local.tm_hour * 60 + local.tm_min) * 60 + local.tm_sec;
  return DateOf(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday) + seconds / 86400;
}

}  // namespace repvolta
