#include "ui/ComeToFront.h"

#include <QApplication>
#include <QWindow>

namespace repvolta {
namespace {

// Qt looks here for the leave when a window asks to be activated. It has no call that takes it.
constexpr const char* kLeave = "XDG_ACTIVATION_TOKEN";

/// Popups have a keyboard of their own, also those of the box.
bool IsBlocked(const QWindow& window, const QWindow& box) {
  return &window != &box && window.type() != Qt::Popup && window.type() != Qt::ToolTip &&
         !box.isAncestorOf(&window, QWindow::IncludeTransients);
}

// On Wayland, Qt asks for the front for each window that gets the keyboard, and asks late. Of two
// boxes in a row, the second would otherwise lose the keyboard to the window below. On X, Qt hands
// it on itself.
void HandOn(const QWindow* window) {
  QWidget* box = QApplication::activeModalWidget();
  if (window == nullptr || box == nullptr || box->windowHandle() == nullptr) return;
  if (IsBlocked(*window, *box->windowHandle())) box->activateWindow();
}

}  // namespace

QByteArray LeaveToComeToFront() { return qgetenv(kLeave); }

void ComeToFront(QWidget& window, const QByteArray& leave) {
  QWidget* box = QApplication::activeModalWidget();
  QWidget& top = box ? *box : window;
  if (top.isMinimized()) top.showNormal();
  top.raise();
  // A leave counts once, so that of this program's own start must not stand in for none.
  if (leave.isEmpty()) {
    qunsetenv(kLeave);
  } else {
    qputenv(kLeave, leave);
  }
  top.activateWindow();
  qunsetenv(kLeave);
}

void HandKeyboardToBoxes(QObject& owner) {
  QObject::connect(qApp, &QGuiApplication::focusWindowChanged, &owner, HandOn);
}

}  // namespace repvolta
