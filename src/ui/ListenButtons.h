#pragma once

#include <QPushButton>
#include <QWidget>

#include "editing/Editor.h"
#include "editing/Listening.h"
#include "ui/Handlers.h"

namespace repvolta {

class ElidedLabel;

/// Beside the name of the current exercise: listens to its instruction, or stops what is heard, and
/// listens to the next exercise; tells what is heard. The keys work in the whole window.
class ListenButtons : public QWidget {
  Q_OBJECT

 public:
  ListenButtons(Editor& editor, Handlers& handlers, QWidget* parent);

  /// Puts the buttons behind `control` in the tab order.
  void ComeAfter(QWidget* control);

  /// Until this call the buttons stay hidden. `listening` must outlive them.
  void Use(Listening& listening);

  /// Without an exercise there is nothing to listen to.
  void ShowForExercise(bool hasExercise);

  /// Adds the keys, once the window is known.
  void AddKeys(QWidget* window);

 private:
  void Toggle();
  void ShowState();
  void ShowFailure();
  void ShowOrHide();

  Editor& editor_;
  Handlers& handlers_;
  QPushButton* listen_;
  QPushButton* next_;
  ElidedLabel* notice_;
  Listening* listening_ = nullptr;
  Listening::Watch watch_;
  bool hasExercise_ = true;
};

}  // namespace repvolta
