#include "ui/ExerciseSteps.h"

namespace repvolta {
namespace {

void Describe(QToolButton& button, bool leadsOn, const QString& text) {
  button.setEnabled(leadsOn);
  // Escaped rich text, so that no character of a name is taken for markup.
  button.setToolTip("<qt>" + text.toHtmlEscaped() + "</qt>");
  button.setAccessibleDescription(text);
}

QString NameOf(const ProgramState& state, int exercise) {
  return QString::fromStdString(state.Workout[exercise].ExerciseName.Trimmed());
}

}  // namespace

void ExerciseSteps::Show(const ProgramState& state) {
  const int current = state.CurrentExercise;
  const bool isFirst = current <= 0 || current > state.NumberOfExercises;
  const bool isLast = current + 1 >= state.NumberOfExercises;
  const QWidget* focus = previous_->hasFocus() ? previous_ : next_->hasFocus() ? next_ : nullptr;
  Describe(*previous_, !isFirst,
           isFirst
               ? QString("There is no exercise before this one.")
               : "Show the exercise before this one: " + NameOf(state, current - 1) + " (Ctrl+Up)");
  Describe(*next_, !isLast,
           isLast ? QString("There is no exercise after this one.")
                  : "Show the next exercise: " + NameOf(state, current + 1) + " (Ctrl+Down)");
  // A button at its end gives the focus to the one that leads back.
  if (focus == previous_ && isFirst) next_->setFocus(Qt::OtherFocusReason);
  if (focus == next_ && isLast) previous_->setFocus(Qt::OtherFocusReason);
}

}  // namespace repvolta
