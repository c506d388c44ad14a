#include "editing/NextGrowth.h"

#include "update/GrowingField.h"

namespace repvolta {

std::optional<SetGrowth> NextGrowth(const ExerciseRecord& exercise, SetValue value,
                                    const UpdateDays& updates, double today) {
  if (!((exercise.*FieldOf(value.field).frequency)[value.set] > 0)) return std::nullopt;
  const std::vector<SetGrowth> rhythm = RhythmOf(exercise, value, updates, today);
  if (rhythm.empty() || rhythm.front().to == rhythm.front().from) return std::nullopt;
  return rhythm.front();
}

}  // namespace repvolta
