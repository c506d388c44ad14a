#include "platform/Clock.h"

#include <ctime>

#include "base/Days.h"

namespace repvolta {

double SystemClock::Now() const {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  const double seconds = (local.tm_hour * 60 + local.tm_min) * 60 + local.tm_sec;
  return DateOf(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday) + seconds / 86400;
}

}  // namespace repvolta
