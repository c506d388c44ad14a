#pragma once

#include <QAction>
#include <functional>
#include <vector>

#include "editing/Editor.h"
#include "ui/Handlers.h"

namespace repvolta {

/// The commands on workouts and exercises that have no button, for the menus.
class WorkoutActions {
 public:
  /// The actions belong to `window`. `selectedExercise` returns a row, or -1.
  WorkoutActions(QWidget& window, Editor& editor, Handlers& handlers,
                 std::function<int()> selectedExercise);

  /// All but "Export ALL as CSV ..." need a workout.
  void Enable(bool enabled);

 private:
  struct Line {
    const char* objectName;
    const char* text;
    const char* failure;
  };

  void AddPrinting(QWidget& window, Editor& editor, Handlers& handlers);
  QAction* Add(QWidget& window, Handlers& handlers, const Line& line,
               const std::function<void()>& command);

  std::vector<QAction*> actions_;
  QAction* exportAll_ = nullptr;
};

}  // namespace repvolta
