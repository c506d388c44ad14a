#pragma once

#include <QObject>

namespace repvolta {

/// Keeps the mouse wheel from changing what it happens to roll over: combo boxes, sliders and tabs
/// obey it only while they have the focus, which the wheel does not give them.
class WheelGuard : public QObject {
 public:
  /// Guards all that is in the window now. Belongs to the window.
  explicit WheelGuard(QWidget* window);

  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace repvolta
