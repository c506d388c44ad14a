#include "keeping/VersionName.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <utility>

#include "base/Days.h"
#include "base/ProgramFiles.h"

namespace repvolta {
namespace {

constexpr double kSecondsOfDay = 86400;

constexpr std::array<std::pair<BeforeWhat, std::string_view>, 5> kReasons = {{
    {BeforeWhat::kChange, "change"},
    {BeforeWhat::kUpdate, "update"},
    {BeforeWhat::kReplacement, "replacement"},
    {BeforeWhat::kDeletion, "deletion"},
    {BeforeWhat::kRestore, "restore"},
}};

constexpr std::string_view kBefore = " before ";
constexpr std::size_t kTimeLength = 19;  // of "2026-11-22 05.32.06"

std::string_view TextOf(BeforeWhat before) {
  for (const auto& [reason, text] : kReasons) {
    if (reason == before) return text;
  }
  return kReasons.front().second;
}

std::optional<BeforeWhat> ParseReason(std::string_view text) {
  for (const auto& [reason, name] : kReasons) {
    if (name == text) return reason;
  }
  return std::nullopt;
}

std::string TimeText(double time) {
  const auto all = static_cast<std::int64_t>(std::llround(time * kSecondsOfDay));
  const auto secondsOfDay = static_cast<std::int64_t>(kSecondsOfDay);
  const std::int64_t second = ((all % secondsOfDay) + secondsOfDay) % secondsOfDay;
  std::array<char, 64> text{};
  static_cast<void>(
      std::snprintf(text.data(), text.size(), " %02d.%02d.%02d", static_cast<int>(second / 3600),
                    static_cast<int>(second / 60 % 60), static_cast<int>(second % 60)));
  const std::int64_t day = (all - second) / secondsOfDay;
  return IsoDate(static_cast<double>(day)) + text.data();
}

/// Digits only: -1 for anything else.
int Number(std::string_view text) {
  int number = 0;
  for (const char c : text) {
    if (c < '0' || c > '9') return -1;
    number = number * 10 + (c - '0');
  }
  return number;
}

std::optional<double> ParseTime(std::string_view text) {
  const int year = Number(text.substr(0, 4));
  const int month = Number(text.substr(5, 2));
  const int day = Number(text.substr(8, 2));
  const int hour = Number(text.substr(11, 2));
  const int minute = Number(text.substr(14, 2));
  const int second = Number(text.substr(17, 2));
  if (year < 0 || month < 1 || day < 1 || hour < 0 || minute < 0 || second < 0) return std::nullopt;
  return DateOf(year, month, day) + (hour * 3600 + minute * 60 + second) / kSecondsOfDay;
}

}  // namespace

std::string FileNameOf(const VersionName& version) {
  return TimeText(version.time).append(kBefore).append(TextOf(version.before)) + kWorkoutExtension;
}

std::optional<VersionName> ParseVersionName(std::string_view fileName) {
  const std::string_view extension = kWorkoutExtension;
  if (fileName.size() < kTimeLength + kBefore.size() + extension.size()) return std::nullopt;
  const auto time = ParseTime(fileName.substr(0, kTimeLength));
  const std::size_t begin = kTimeLength + kBefore.size();
  const auto before =
      ParseReason(fileName.substr(begin, fileName.size() - begin - extension.size()));
  if (!time || !before) return std::nullopt;
  const VersionName version = {.time = *time, .before = *before};
  // Whatever is written in another way is no name of ours.
  if (FileNameOf(version) != fileName) return std::nullopt;
  return version;
}

}  // namespace repvolta
