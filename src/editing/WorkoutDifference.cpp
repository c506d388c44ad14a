#include "editing/WorkoutDifference.h"

#include <algorithm>
#include <functional>
#include <optional>

#include "base/Text.h"
#include "editing/ExerciseDifference.h"
#include "editing/GrowthTexts.h"
#include "editing/ScreenTexts.h"

namespace repvolta {
namespace {

using Exercises = std::vector<ExerciseRecord>;
using Alike = std::function<bool(std::size_t then, std::size_t now)>;

std::string NameOf(const ExerciseRecord& exercise) { return exercise.ExerciseName.Trimmed(); }

bool DifferInNameOnly(ExerciseRecord a, const ExerciseRecord& b) {
  a.ExerciseName = b.ExerciseName;
  return a == b;
}

/// Of the same kind, with the same numbers.
bool AreMuchAlike(const ExerciseRecord& a, const ExerciseRecord& b) {
  return a.SetType == b.SetType && a.NumberOfSets > 0 && a.NumberOfSets == b.NumberOfSets &&
         a.SetValue1 == b.SetValue1 && a.SetValue2 == b.SetValue2;
}

/// Which exercise of now is the one of then.
class Pairs {
 public:
  Pairs(const Exercises& then, const Exercises& now)
      : then_(then), now_(now), partners_(then.size()), isTaken_(now.size(), false) {
    const auto haveOneName = [&](std::size_t i, std::size_t j) {
      return NameOf(then_[i]) == NameOf(now_[j]);
    };
    // Of several of one name, the equal ones belong together, unless all of them are there: then
    // each has kept its place among them.
    Pair([&](std::size_t i, std::size_t j) {
      return haveOneName(i, j) && !AreAsMany(NameOf(then_[i])) && then_[i] == now_[j];
    });
    Pair(haveOneName);
    Pair([&](std::size_t i, std::size_t j) { return DifferInNameOnly(then_[i], now_[j]); });
    Pair([&](std::size_t i, std::size_t j) { return AreMuchAlike(then_[i], now_[j]); });
  }

  std::optional<std::size_t> OfThen(std::size_t then) const { return partners_[then]; }
  std::optional<std::size_t> OfNow(std::size_t now) const {
    const auto found = std::ranges::find(partners_, std::optional(now));
    if (found == partners_.end()) return std::nullopt;
    return static_cast<std::size_t>(found - partners_.begin());
  }

  /// True when the pairs stand in another order now.
  bool HaveMoved() const {
    std::vector<std::size_t> order;
    for (const auto& partner : partners_) {
      if (partner) order.push_back(*partner);
    }
    return !std::ranges::is_sorted(order);
  }

 private:
  void Pair(const Alike& alike) {
    for (std::size_t i = 0; i < then_.size(); ++i) {
      for (std::size_t j = 0; j < now_.size() && !partners_[i]; ++j) {
        if (isTaken_[j] || !alike(i, j)) continue;
        partners_[i] = j;
        isTaken_[j] = true;
      }
    }
  }

  bool AreAsMany(const std::string& name) const {
    const auto isIt = [&](const ExerciseRecord& exercise) { return NameOf(exercise) == name; };
    return std::ranges::count_if(then_, isIt) == std::ranges::count_if(now_, isIt);
  }

  const Exercises& then_;
  const Exercises& now_;
  std::vector<std::optional<std::size_t>> partners_;  // of then
  std::vector<bool> isTaken_;                         // of now
};

/// The names as lines call them: of several equal ones, "Bench Press (2)" is the second.
std::vector<std::string> Labels(const Exercises& exercises, const Exercises& others) {
  const auto count = [](const Exercises& list, std::size_t end, const std::string& name) {
    return std::count_if(list.begin(), list.begin() + static_cast<std::ptrdiff_t>(end),
                         [&](const ExerciseRecord& one) { return NameOf(one) == name; });
  };
  std::vector<std::string> labels;
  labels.reserve(exercises.size());
  for (std::size_t i = 0; i < exercises.size(); ++i) {
    const std::string name = NameOf(exercises[i]);
    const bool isOnlyOne =
        count(exercises, exercises.size(), name) == 1 && count(others, others.size(), name) <= 1;
    labels.push_back(isOnlyOne ? name
                               : name + " (" + std::to_string(count(exercises, i + 1, name)) + ")");
  }
  return labels;
}

}  // namespace

std::vector<std::string> WorkoutDifference(const Exercises& then, const Exercises& now) {
  const Pairs pairs(then, now);
  std::vector<std::string> thenLabels = Labels(then, now);
  const std::vector<std::string> nowLabels = Labels(now, then);
  std::vector<std::string> lines;
  for (std::size_t i = 0; i < then.size(); ++i) {
    const auto partner = pairs.OfThen(i);
    if (!partner) {
      lines.push_back(ShownOnOneLine(thenLabels[i] + ": only then"));
      continue;
    }
    thenLabels[i] = nowLabels[*partner];
    for (std::string& line : ExerciseDifference(nowLabels[*partner], then[i], now[*partner])) {
      lines.push_back(std::move(line));
    }
  }
  for (std::size_t i = 0; i < now.size(); ++i) {
    if (!pairs.OfNow(i)) lines.push_back(ShownOnOneLine(nowLabels[i] + ": only now"));
  }
  if (pairs.HaveMoved()) {
    lines.push_back(
        ShownOnOneLine("The order: " + Listed(thenLabels) + " instead of " + Listed(nowLabels)));
  }
  return lines;
}

std::string ExercisesText(const Exercises& exercises) {
  if (exercises.empty()) return "No exercises";
  std::vector<std::string> names;
  names.reserve(exercises.size());
  for (const ExerciseRecord& exercise : exercises) names.push_back(NameOf(exercise));
  return ShownOnOneLine(std::to_string(exercises.size()) +
                        (exercises.size() == 1 ? " exercise: " : " exercises: ") + Listed(names));
}

std::vector<std::string> WorkoutLines(const Exercises& exercises) {
  std::vector<std::string> lines;
  lines.reserve(exercises.size());
  for (const ExerciseRecord& exercise : exercises) {
    lines.push_back(ShownOnOneLine(NameOf(exercise) + ": " + SummaryLine(exercise)));
  }
  return lines;
}

}  // namespace repvolta
