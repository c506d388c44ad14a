#pragma once

#include <QToolButton>

#include "app/ProgramState.h"

namespace repvolta {

/// The two buttons that lead from exercise to exercise. They follow the workout: at its ends the
/// button that leads no further is disabled, and says so.
class ExerciseSteps {
 public:
  ExerciseSteps(QToolButton* previous, QToolButton* next) : previous_(previous), next_(next) {}

  void Show(const ProgramState& state);

 private:
  QToolButton* previous_;
  QToolButton* next_;
};

}  // namespace repvolta
