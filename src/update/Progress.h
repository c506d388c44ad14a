#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

namespace repvolta {

/// How much of the work of an update is done. Work is counted in bytes to copy; what is not copied
/// counts as many bytes as would be copied in its time.
struct WorkDone {
  std::uint64_t done = 0;
  std::uint64_t total = 0;
  std::string atHand = {};  // what is being made; "" when that is nothing

  bool operator==(const WorkDone&) const = default;
};

/// How far an update is, as a person sees it.
struct Progress {
  int percent = 0;
  std::string atHand = {};
  std::optional<std::chrono::seconds> left = {};  // nothing until it is known

  bool operator==(const Progress&) const = default;
};

/// Tells from the work and the time how far an update is. It never goes back, and the time left is
/// known only when some seconds and some of the work have passed; it then follows a change of
/// speed slowly, so that it does not jump.
class ProgressMeter {
 public:
  using Time = std::chrono::steady_clock::time_point;

  /// The progress at the time `now`. Work of which nothing is done begins anew.
  Progress Read(const WorkDone& work, Time now);

 private:
  using Duration = std::chrono::duration<double>;

  bool IsEndKnown(const WorkDone& work, Time now) const;
  void Estimate(const WorkDone& work, Time now);

  Time start_;
  Time lastRead_;
  std::optional<Duration> end_;  // after the start, as estimated
  int percent_ = 0;
};

/// "about 2 minutes left"; "" while that is not known.
std::string TimeLeftText(const Progress& progress);

/// All of it on one line: "45 %, about 2 minutes left: Song.mp3".
std::string ProgressLine(const Progress& progress);

}  // namespace repvolta
