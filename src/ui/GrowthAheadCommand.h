#pragma once

#include <QAction>
#include <QWidget>

#include "editing/Editor.h"
#include "ui/Handlers.h"

namespace repvolta {

class GrowthAheadForm;

/// Opens "Growth Ahead" with Ctrl+G, and keeps it up to date. Its window is made when it is first
/// opened, because most starts of the program need none.
class GrowthAheadCommand : public QObject {
 public:
  /// `window` gets the action "GrowthAheadAction" and owns this object.
  GrowthAheadCommand(const Editor& editor, Handlers& handlers, QWidget& window);

  /// Follows what is in memory: called after each command.
  void Refresh();

 private:
  void Open();
  void MakeForm();
  void ShowExercise();

  const Editor& editor_;
  Handlers& handlers_;
  QWidget& window_;
  QAction* action_;
  GrowthAheadForm* form_ = nullptr;
};

}  // namespace repvolta
