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

  /// They need a workout, except for restoring an earlier version and exporting all.
  void Enable(bool enabled);

 private:
  struct Line {
    const char* objectName;
    const char* text;
    const char* failure;
  };

  /// For a command that needs no workout.
  static QAction* AddAlways(QWidget& window, Handlers& handlers, const Line& line,
                            const std::function<void()>& command);
  void Add(QWidget& window, Handlers& handlers, const Line& line,
           const std::function<void()>& command);
  void AddPrinting(QWidget& window, Editor& editor, Handlers& handlers);

  std::vector<QAction*> actions_;  // those that need a workout
};

}  // namespace repvolta
