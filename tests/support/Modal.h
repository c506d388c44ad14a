#pragma once

#include <QApplication>
#include <QTimer>
#include <functional>

namespace repvolta {

/// Does `act` with the next box or dialog that blocks the program, as soon as it is open. The box
/// must be closed by it.
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
