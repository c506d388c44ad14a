#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

namespace repvolta {

/// A place in the lists of exercise names.
struct ExercisePlace {
  int type = 0;
  int row = 0;

  bool operator==(const ExercisePlace&) const = default;
};

/// Where the name is that fits the text best, in lists of names by type: the name itself, else one
/// that begins with the text, has a word that does, or contains it. The first one of several; none
/// for a blank text. Capitals make no difference.
std::optional<ExercisePlace> FindExercise(const std::vector<QStringList>& namesOfTypes,
                                          const QString& text);

}  // namespace repvolta
