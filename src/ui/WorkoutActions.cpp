#include "ui/WorkoutActions.h"

#include <utility>

#include "editing/RestoreVersion.h"
#include "editing/WorkoutCopies.h"
#include "ui/Keys.h"

namespace repvolta {

WorkoutActions::WorkoutActions(QWidget& window, Editor& editor, Handlers& handlers,
                               std::function<int()> selectedExercise) {
  Add(window, handlers, "DuplicateWorkoutAction", "Duplicate Workout ...",
      "The workout could not be copied.", [&editor] { DuplicateWorkout(editor); });
  Add(window, handlers, "RenameWorkoutAction", "Rename Workout ...",
      "The workout could not be renamed.", [&editor] { RenameWorkout(editor); });
  Add(window, handlers, "CopyExerciseAction", "Copy Exercise to ...",
      "The exercise could not be copied.",
      [&editor, row = std::move(selectedExercise)] { CopyExercise(editor, row()); });
  AddRestore(window, editor, handlers);
}

void WorkoutActions::Add(QWidget& window, Handlers& handlers, const char* objectName,
                         const char* text, const std::string& failure,
                         const std::function<void()>& command) {
  QAction* action = AddCommand(&window, objectName, text, {});
  QObject::connect(action, &QAction::triggered, &window,
                   [&handlers, failure, command] { handlers.Run(failure, command); });
  actions_.push_back(action);
}

/// Without a workout, too: it brings back deleted ones.
void WorkoutActions::AddRestore(QWidget& window, Editor& editor, Handlers& handlers) {
  QAction* action =
      AddCommand(&window, "RestoreVersionAction", "Restore an Earlier Version ...", {});
  QObject::connect(action, &QAction::triggered, &window, [&editor, &handlers] {
    handlers.Run("The earlier version could not be restored.", [&] { RestoreVersion(editor); });
  });
}

void WorkoutActions::Enable(bool enabled) {
  for (QAction* action : actions_) action->setEnabled(enabled);
}

}  // namespace repvolta
