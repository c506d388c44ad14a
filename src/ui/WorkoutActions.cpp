#include "ui/WorkoutActions.h"

#include <utility>

#include "editing/ExportCsv.h"
#include "editing/SheetCommands.h"
#include "editing/WorkoutCopies.h"
#include "ui/Keys.h"
#include "ui/PrintedSheet.h"

namespace repvolta {
namespace {

struct Command {
  std::string failure;  // "The workout could not be copied."
  std::function<void()> run;
};

QAction* AddAction(QWidget& window, Handlers& handlers, const char* objectName, const char* text,
                   const Command& command) {
  QAction* action = AddCommand(&window, objectName, text, {});
  QObject::connect(action, &QAction::triggered, &window,
                   [&handlers, command] { handlers.Run(command.failure, command.run); });
  return action;
}

}  // namespace

WorkoutActions::WorkoutActions(QWidget& window, Editor& editor, Handlers& handlers,
                               std::function<int()> selectedExercise) {
  Add(window, handlers, "DuplicateWorkoutAction", "Duplicate Workout ...",
      "The workout could not be copied.", [&editor] { DuplicateWorkout(editor); });
  Add(window, handlers, "RenameWorkoutAction", "Rename Workout ...",
      "The workout could not be renamed.", [&editor] { RenameWorkout(editor); });
  Add(window, handlers, "CopyExerciseAction", "Copy Exercise to ...",
      "The exercise could not be copied.",
      [&editor, row = std::move(selectedExercise)] { CopyExercise(editor, row()); });
  AddPrinting(window, editor, handlers);
  Add(window, handlers, "ExportCsvAction", "Export as CSV ...",
      "The workout could not be exported.", [&editor] { ExportCsv(editor); });
  AddAction(window, handlers, "ExportAllCsvAction", "Export ALL as CSV ...",
            {"The workouts could not be exported.", [&editor] { ExportAllCsv(editor); }});
}

void WorkoutActions::AddPrinting(QWidget& window, Editor& editor, Handlers& handlers) {
  Add(window, handlers, "PrintAction", "Print ...", "The workout could not be printed.",
      [&editor, &window] {
        PrintWorkout(editor,
                     [&window](const WorkoutSheet& sheet) { return PrintSheet(sheet, &window); });
      });
  Add(window, handlers, "SavePdfAction", "Save as PDF ...", "The PDF could not be made.",
      [&editor] {
        SaveWorkoutAsPdf(editor,
                         [](const WorkoutSheet& sheet) { return SheetAsPdf(sheet, UsualPaper()); });
      });
}

void WorkoutActions::Add(QWidget& window, Handlers& handlers, const char* objectName,
                         const char* text, const std::string& failure,
                         const std::function<void()>& command) {
  actions_.push_back(AddAction(window, handlers, objectName, text, {failure, command}));
}

void WorkoutActions::Enable(bool enabled) {
  for (QAction* action : actions_) action->setEnabled(enabled);
}

}  // namespace repvolta
