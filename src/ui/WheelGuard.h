#pragma once

#include <QObject>

namespace repvolta {

/// Keeps the mouse wheel from changing controls by accident: combo boxes, sliders and tabs react to
/// it only while they have the focus, and the wheel does not give them the focus.
class WheelGuard : public QObject {
 public:
  /// Guards the controls that the window has now. The window owns this object.
  explicit WheelGuard(QWidget* window);

  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace repvolta
