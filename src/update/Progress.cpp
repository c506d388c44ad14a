#include "update/Progress.h"

#include <algorithm>

namespace repvolta {
namespace {

using namespace std::chrono_literals;

constexpr int kAll = 100;  // per cent

// Before that, an estimate would only tell how fast the first file was.
constexpr auto kLeastTime = 3s;
constexpr int kLeastPercent = 3;

/// A new estimate counts in full only after this time.
constexpr std::chrono::duration<double> kSettlingTime = 5s;

int PercentOf(const WorkDone& work) {
  if (work.total == 0) return 0;
  const double share = static_cast<double>(work.done) / static_cast<double>(work.total);
  return work.done < work.total ? static_cast<int>(share * kAll) : kAll;
}

std::string About(std::int64_t count, const std::string& unit) {
  return "about " + std::to_string(count) + " " + unit + (count == 1 ? "" : "s") + " left";
}

}  // namespace

Progress ProgressMeter::Read(const WorkDone& work, Time now) {
  if (work.done == 0) {
    *this = ProgressMeter();
    start_ = now;
  }
  percent_ = std::max(percent_, PercentOf(work));
  Progress progress{.percent = percent_, .atHand = work.atHand};
  if (!IsEndKnown(work, now)) return progress;
  Estimate(work, now);
  const Duration left = *end_ - (now - start_);
  progress.left = std::max(0s, std::chrono::ceil<std::chrono::seconds>(left));
  return progress;
}

bool ProgressMeter::IsEndKnown(const WorkDone& work, Time now) const {
  return now - start_ >= kLeastTime && percent_ >= kLeastPercent && work.done < work.total;
}

void ProgressMeter::Estimate(const WorkDone& work, Time now) {
  const Duration elapsed = now - start_;
  const Duration end = elapsed * (static_cast<double>(work.total) / static_cast<double>(work.done));
  const double weight = end_ ? std::min(1.0, (now - lastRead_) / kSettlingTime) : 1.0;
  end_ = end_.value_or(end) * (1 - weight) + end * weight;
  lastRead_ = now;
}

std::string TimeLeftText(const Progress& progress) {
  constexpr std::int64_t kStep = 5;
  constexpr std::int64_t kMinute = 60;
  if (!progress.left) return "";
  const std::int64_t seconds = progress.left->count();
  if (seconds < kStep) return "a few seconds left";
  const std::int64_t rounded = (seconds + kStep - 1) / kStep * kStep;
  if (rounded < kMinute) return About(rounded, "second");
  return About((rounded + kMinute / 2) / kMinute, "minute");
}

std::string ProgressLine(const Progress& progress) {
  const std::string left = TimeLeftText(progress);
  return std::to_string(progress.percent) + " %" + (left.empty() ? "" : ", " + left) +
         (progress.atHand.empty() ? "" : ": " + progress.atHand);
}

}  // namespace repvolta
