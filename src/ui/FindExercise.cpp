#include "ui/FindExercise.h"

namespace repvolta {
namespace {

constexpr int kNoFit = 0;
constexpr int kBestFit = 4;

/// The higher, the better.
int Fit(const QString& name, const QString& text) {
  if (name.compare(text, Qt::CaseInsensitive) == 0) return kBestFit;
  if (name.startsWith(text, Qt::CaseInsensitive)) return 3;
  if (name.contains(" " + text, Qt::CaseInsensitive)) return 2;
  return name.contains(text, Qt::CaseInsensitive) ? 1 : kNoFit;
}

}  // namespace

std::optional<ExercisePlace> FindExercise(const std::vector<QStringList>& namesOfTypes,
                                          const QString& text) {
  const QString wanted = text.trimmed();
  if (wanted.isEmpty()) return std::nullopt;
  std::optional<ExercisePlace> place;
  int best = kNoFit;
  for (std::size_t type = 0; type < namesOfTypes.size(); ++type) {
    const QStringList& names = namesOfTypes[type];
    for (int row = 0; row < names.size(); ++row) {
      const int fit = Fit(names[row], wanted);
      if (fit <= best) continue;
      best = fit;
      place = ExercisePlace{static_cast<int>(type), row};
    }
  }
  return place;
}

}  // namespace repvolta
