#include "update/GrowthAhead.h"

#include <cmath>
#include <functional>

#include "base/Days.h"
#include "update/GrowingField.h"

namespace repvolta {
namespace {

constexpr int kDaysAhead = kYearsAhead * 366;

// A growth depends on the weekday of the one before, so after one a weekday the rhythm repeats;
// then it is shown once more.
constexpr std::size_t kRhythm = 15;

enum class Next { kGoOn, kEnough };

void PutForward(ExerciseRecord exercise, const UpdateDays& updates, const DaySpan& span,
                const std::function<Next(const SetGrowth&)>& grown) {
  for (int i = 0; i < span.days; ++i) {
    const double day = span.first + i;
    if (!updates[static_cast<std::size_t>(WeekdayOf(day))]) continue;
    for (const SetGrowth& growth : GrowthOn(exercise, day)) {
      Apply(growth, exercise);
      if (grown(growth) == Next::kEnough) return;
    }
  }
}

/// The exercise with no other value that grows.
ExerciseRecord Alone(ExerciseRecord exercise, SetValue value) {
  const float frequency = (exercise.*FieldOf(value.field).frequency)[value.set];
  exercise.SetFrequency1 = exercise.SetFrequency2 = {};
  (exercise.*FieldOf(value.field).frequency)[value.set] = frequency;
  return exercise;
}

bool IsTurn(const SetGrowth& growth) {
  return growth.failure || growth.to == growth.from || (growth.from > 0 && growth.to <= 0);
}

}  // namespace

std::vector<SetGrowth> GrowthAhead(ExerciseRecord exercise, const UpdateDays& updates,
                                   const DaySpan& span) {
  std::vector<SetGrowth> growths;
  PutForward(std::move(exercise), updates, span, [&](const SetGrowth& growth) {
    growths.push_back(growth);
    return Next::kGoOn;
  });
  return growths;
}

std::vector<SetGrowth> RhythmOf(const ExerciseRecord& exercise, SetValue value,
                                const UpdateDays& updates, double today) {
  std::vector<SetGrowth> growths;
  PutForward(Alone(exercise, value), updates, {today, kDaysAhead}, [&](const SetGrowth& growth) {
    growths.push_back(growth);
    return growths.size() < kRhythm ? Next::kGoOn : Next::kEnough;
  });
  return growths;
}

std::optional<SetGrowth> TurnOf(const ExerciseRecord& exercise, SetValue value,
                                const UpdateDays& updates, double today) {
  std::optional<SetGrowth> turn;
  PutForward(Alone(exercise, value), updates, {today, kDaysAhead}, [&](const SetGrowth& growth) {
    if (IsTurn(growth)) turn = growth;
    return turn ? Next::kEnough : Next::kGoOn;
  });
  return turn;
}

std::optional<TriedFrequency> BetterFrequency(const ExerciseRecord& exercise, SetValue value,
                                              const UpdateDays& updates, double today) {
  constexpr int kTried = 7;
  ExerciseRecord tried = exercise;
  float& frequency = (tried.*FieldOf(value.field).frequency)[value.set];
  const float wanted = frequency;
  std::optional<TriedFrequency> best;
  double bestMean = MeanDays(RhythmOf(exercise, value, updates, today));
  for (int i = 1; i <= kTried && std::ceil(wanted) - static_cast<float>(i) >= 1; ++i) {
    frequency = std::ceil(wanted) - static_cast<float>(i);
    std::vector<SetGrowth> rhythm = RhythmOf(tried, value, updates, today);
    const double mean = MeanDays(rhythm);
    if (mean < static_cast<double>(wanted) || mean >= bestMean) continue;
    bestMean = mean;
    best = {.days = frequency, .rhythm = std::move(rhythm)};
  }
  return best;
}

double MeanDays(const std::vector<SetGrowth>& rhythm) {
  if (rhythm.size() < 2) return 0;
  return (rhythm.back().day - rhythm.front().day) / static_cast<double>(rhythm.size() - 1);
}

}  // namespace repvolta
