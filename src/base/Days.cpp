#include "base/Days.h"

#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <stdexcept>

namespace repvolta {
namespace {

constexpr std::chrono::sys_days kDayZero = std::chrono::year{1899} / 12 / 30;
constexpr int kWeek = 7;

constexpr std::array kWeekdays = {"Monday", "Tuesday",  "Wednesday", "Thursday",
                                  "Friday", "Saturday", "Sunday"};
constexpr std::array kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

std::chrono::year_month_day CalendarDay(double date) {
  constexpr double kLimit = 1e7;  // days; more years than a calendar shows
  if (!(std::abs(date) < kLimit)) throw std::overflow_error("There is no such date");
  return kDayZero + std::chrono::days(static_cast<int>(std::floor(date)));
}

}  // namespace

double DateOf(int year, int month, int day) {
  using namespace std::chrono;
  const sys_days date = std::chrono::year{year} / month / day;
  return static_cast<double>((date - kDayZero).count());
}

int WeekdayOf(double date) {
  constexpr int kWeekdayOfDayZero = 5;
  const auto day = static_cast<int>(std::fmod(std::floor(date), kWeek));
  return (day + kWeek + kWeekdayOfDayZero) % kWeek;
}

const char* WeekdayName(int weekday) { return kWeekdays.at(static_cast<std::size_t>(weekday)); }

std::string EnglishDate(double date) {
  constexpr std::size_t kShortName = 3;
  const std::chrono::year_month_day day = CalendarDay(date);
  return std::string(WeekdayName(WeekdayOf(date)), kShortName) + " " +
         std::to_string(static_cast<unsigned>(day.day())) + " " +
         kMonths.at(static_cast<unsigned>(day.month()) - 1) + " " + std::to_string(int{day.year()});
}

std::string IsoDate(double date) {
  const std::chrono::year_month_day day = CalendarDay(date);
  std::array<char, 32> text{};
  static_cast<void>(std::snprintf(text.data(), text.size(), "%04d-%02u-%02u", int{day.year()},
                                  unsigned{day.month()}, unsigned{day.day()}));
  return text.data();
}

}  // namespace repvolta
