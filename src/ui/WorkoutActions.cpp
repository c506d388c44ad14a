#include "ui/WorkoutActions.h"

#include <utility>

#include "editing/ExportCsv.h"
#include "editing/RestoreVersion.h"
#include "editing/SheetCommands.h"
#include "editing/WorkoutCopies.h"
#include "ui/Keys.h"
#include "ui/PrintedSheet.h"

namespace repvolta {

WorkoutActions::WorkoutActions(QWidget& window, Editor& editor, Handlers& handlers,
                               std::function<int()> selectedExercise) {
  Add(window, handlers,
      {"DuplicateWorkoutAction", "Duplicate Workout ...", "The workout could not be copied."},
      [&editor] { DuplicateWorkout(editor); });
  Add(window, handlers,
      {"RenameWorkoutAction", "Rename Workout ...", "The workout could not be renamed."},
      [&editor] { RenameWorkout(editor); });
  Add(window, handlers,
      {"CopyExerciseAction", "Copy Exercise to ...", "The exercise could not be copied."},
      [&editor, row = std::move(selectedExercise)] { CopyExercise(editor, row()); });
  // It brings back deleted workouts, too.
  AddAlways(window, handlers,
            {"RestoreVersionAction", "Restore an Earlier Version ...",
             "The earlier version could not be restored."},
            [&editor] { RestoreVersion(editor); });
  AddPrinting(window, editor, handlers);
  Add(window, handlers,
      {"ExportCsvAction", "Export as CSV ...", "The workout could not be exported."},
      [&editor] { ExportCsv(editor); });
  AddAlways(window, handlers,
            {"ExportAllCsvAction", "Export ALL as CSV ...", "The workouts could not be exported."},
            [&editor] { ExportAllCsv(editor); });
}

void WorkoutActions::AddPrinting(QWidget& window, Editor& editor, Handlers& handlers) {
  Add(window, handlers, {"PrintAction", "Print ...", "The workout could not be printed."},
      [&editor, &window] {
        PrintWorkout(editor,
                     [&window](const WorkoutSheet& sheet) { return PrintSheet(sheet, &window); });
      });
  Add(window, handlers, {"SavePdfAction", "Save as PDF ...", "The PDF could not be made."},
      [&editor] {
        SaveWorkoutAsPdf(editor,
                         [](const WorkoutSheet& sheet) { return SheetAsPdf(sheet, UsualPaper()); });
      });
}

QAction* WorkoutActions::AddAlways(QWidget& window, Handlers& handlers, const Line& line,
                                   const std::function<void()>& command) {
  QAction* action = AddCommand(&window, line.objectName, line.text, {});
  QObject::connect(
      action, &QAction::triggered, &window,
      [&handlers, failure = line.failure, command] { handlers.Run(failure, command); });
  return action;
}

void WorkoutActions::Add(QWidget& window, Handlers& handlers, const Line& line,
                         const std::function<void()>& command) {
  actions_.push_back(AddAlways(window, handlers, line, command));
}

void WorkoutActions::Enable(bool enabled) {
  for (QAction* action : actions_) action->setEnabled(enabled);
}

}  // namespace repvolta
