#include "base/Days.h"

#include <chrono>

namespace repvolta {

double DateOf(int year, int month, int day) {
  using namespace std::chrono;
  constexpr sys_days kDayZero = std::chrono::year{1899} / 12 / 30;
  const sys_days date = std::chrono::year{year} / month / day;
  return static_cast<double>((date - kDayZero).count());
}

}  // namespace repvolta
