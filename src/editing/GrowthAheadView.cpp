#include "editing/GrowthAheadView.h"

#include <algorithm>
#include <map>
#include <utility>

#include "base/Days.h"
#include "base/Numbers.h"
#include "editing/GrowthSentence.h"

namespace repvolta {
namespace {

int SetsOf(const ExerciseRecord& exercise) {
  return std::clamp<int>(exercise.NumberOfSets, 0, kSetSlots);
}

/// The advice for a field, said once for all sets to which it applies.
void AddAdvice(GrowthAheadView& view, const ExerciseRecord& exercise, int field,
               const UpdateDays& updates) {
  const ValueName name = ValueNameOf(exercise, field);
  const auto advice = [&](int set, const ValueName& called) {
    return GrowthAdvice(exercise, {set, field}, updates, view.span.first, called);
  };
  std::vector<std::pair<std::string, std::vector<int>>> setsOf;
  for (int set = 0; set < SetsOf(exercise); ++set) {
    const std::string text = advice(set, name);
    if (text.empty()) continue;
    const auto known = std::find_if(setsOf.begin(), setsOf.end(),
                                    [&](const auto& entry) { return entry.first == text; });
    if (known == setsOf.end()) {
      setsOf.push_back({text, {set}});
    } else {
      known->second.push_back(set);
    }
  }
  for (const auto& [text, sets] : setsOf) {
    view.advice.push_back(setsOf.size() == 1 ? text
                                             : advice(sets.front(), NameWithSets(name, sets)));
  }
}

GrowthRow RowOf(const SetGrowth& growth, const std::string& field) {
  return {.day = EnglishDate(growth.day),
          .set = std::to_string(growth.set + 1),
          .field = field,
          .from = ListNumberText(growth.from),
          .to = ListNumberText(growth.to)};
}

void AddChanges(GrowthAheadView& view, const ExerciseRecord& exercise, const UpdateDays& updates) {
  const std::map<int, std::string> names = {{1, ValueNameOf(exercise, 1).text},
                                            {2, ValueNameOf(exercise, 2).text}};
  std::map<std::pair<int, int>, GrowthCurve> curves;
  for (const SetGrowth& growth : GrowthAhead(exercise, updates, view.span)) {
    if (growth.to == growth.from) continue;
    const std::string& name = names.at(growth.field);
    view.rows.push_back(RowOf(growth, name));
    GrowthCurve& curve = curves[{growth.set, growth.field}];
    if (curve.steps.empty()) {
      curve = {.name = "Set " + std::to_string(growth.set + 1) + ": " + name,
               .set = growth.set,
               .field = growth.field,
               .steps = {{view.span.first, growth.from}}};
      (growth.field == 1 ? view.left : view.right) = name;
    }
    curve.steps.push_back({growth.day, growth.to});
  }
  for (auto& [value, curve] : curves) view.curves.push_back(std::move(curve));
}

}  // namespace

std::string GrowthAheadView::Description() const {
  std::string text;
  for (const GrowthCurve& curve : curves) {
    const std::size_t steps = curve.steps.size() - 1;
    text += (text.empty() ? "" : " ") + curve.name + " from " +
            ListNumberText(curve.steps.front().value) + " to " +
            ListNumberText(curve.steps.back().value) + " in " + std::to_string(steps) +
            (steps == 1 ? " step, on " : " steps, the last on ") +
            EnglishDate(curve.steps.back().day) + ".";
  }
  return text;
}

GrowthAheadView GrowthAheadOf(const ExerciseRecord& exercise, const UpdateDays& updates,
                              const DaySpan& span) {
  GrowthAheadView view;
  view.exercise = exercise.ExerciseName.Trimmed();
  view.span = span;
  for (const int field : {1, 2}) AddAdvice(view, exercise, field, updates);
  AddChanges(view, exercise, updates);
  return view;
}

}  // namespace repvolta
