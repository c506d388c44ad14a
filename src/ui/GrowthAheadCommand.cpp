#include "ui/GrowthAheadCommand.h"

#include "base/Text.h"
#include "editing/GrowthEditing.h"
#include "ui/GrowthAheadForm.h"
#include "ui/Keys.h"

namespace repvolta {

GrowthAheadCommand::GrowthAheadCommand(const Editor& editor, Handlers& handlers, QWidget& window)
    : QObject(&window),
      editor_(editor),
      handlers_(handlers),
      window_(window),
      action_(AddCommand(&window, "GrowthAheadAction", "Growth Ahead ...", Qt::CTRL | Qt::Key_G)) {
  connect(action_, &QAction::triggered, this, &GrowthAheadCommand::Open);
}

void GrowthAheadCommand::Refresh() {
  const ProgramState& state = editor_.State();
  const bool hasExercise =
      state.NumberOfExercises >= 1 && !TrimBlanks(state.WorkoutFileName).empty();
  action_->setEnabled(hasExercise);
  if (form_ == nullptr || !form_->isVisible()) return;
  if (hasExercise) {
    ShowExercise();
  } else {
    form_->hide();
  }
}

void GrowthAheadCommand::Open() {
  handlers_.Run("The growth ahead cannot be shown.", [this] {
    if (form_ == nullptr) MakeForm();
    ShowExercise();
    form_->show();
    form_->raise();
    form_->activateWindow();
  });
}

void GrowthAheadCommand::MakeForm() {
  form_ = new GrowthAheadForm(&window_);
  form_->OnUpdateDays([this](const UpdateDays& days) {
    handlers_.Run("The days could not be kept.", [&] { ChooseUpdateDays(editor_, days); });
  });
  form_->OnWeeks([this] { ShowExercise(); });
}

void GrowthAheadCommand::ShowExercise() {
  const UpdateDays days = ChosenUpdateDays(editor_);
  form_->ShowUpdateDays(days);
  form_->Show(
      GrowthAheadOf(editor_.Exercise(), days, {editor_.program.clock.Today(), form_->DaysAhead()}));
}

}  // namespace repvolta
