#pragma once

#include <QApplication>
#include <QTimer>
#include <functional>

namespace repvolta {

/// Calls `act` with the next modal box or dialog as soon as it is open. `act` must close the box.
inline void WhenModal(std::function<void(QWidget& box)> act) {
  QTimer::singleShot(0, qApp, [act = std::move(act)] {
    if (QWidget* box = QApplication::activeModalWidget()) {
      act(*box);
    } else {
      WhenModal(act);
    }
  });
}

/// The control of that name; the test crashes when there is none.
template <class Control>
Control& Find(QWidget& window, const char* name) {
  Control* control = window.findChild<Control*>(name);
  if (!control) qFatal("There is no control %s", name);
  return *control;
}

}  // namespace repvolta
