#pragma once

#include <QAction>
#include <functional>

#include "editing/Editor.h"
#include "ui/Handlers.h"

namespace repvolta {

/// Undo and Redo, which say in the menu what they are of.
class UndoActions {
 public:
  /// The actions belong to `window`. `afterwards` is called when one has shown what it brought
  /// back.
  UndoActions(QWidget& window, Editor& editor, Handlers& handlers,
              const std::function<void()>& afterwards);

  /// To be called when a command has ended, or begins to be long. They are disabled while there is
  /// no step, or the window is `busy`.
  void Refresh(bool busy);

 private:
  const Editor& editor_;
  QAction* undo_;
  QAction* redo_;
};

}  // namespace repvolta
