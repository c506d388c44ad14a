#include "ui/WheelGuard.h"

#include <QComboBox>
#include <QEvent>
#include <QSlider>
#include <QTabBar>

namespace repvolta {

WheelGuard::WheelGuard(QWidget* window) : QObject(window) {
  for (QWidget* widget : window->findChildren<QWidget*>()) {
    if (qobject_cast<QComboBox*>(widget) != nullptr || qobject_cast<QSlider*>(widget) != nullptr ||
        qobject_cast<QTabBar*>(widget) != nullptr) {
      widget->installEventFilter(this);
      if (widget->focusPolicy() == Qt::WheelFocus) widget->setFocusPolicy(Qt::StrongFocus);
    }
  }
}

bool WheelGuard::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::Wheel || static_cast<QWidget*>(watched)->hasFocus()) return false;
  event->ignore();
  return true;
}

}  // namespace repvolta
