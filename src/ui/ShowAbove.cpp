#include "ui/ShowAbove.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QWindow>

namespace repvolta {
namespace {

// Milliseconds.
constexpr int kExposureLimit = 200;
constexpr int kSlice = 10;

}  // namespace

void ShowAbove(QWidget& window, const QWidget* owner) {
  window.winId();  // makes the window handle
  window.windowHandle()->setTransientParent(owner ? owner->windowHandle() : nullptr);
  window.show();
  window.raise();
  const QDeadlineTimer limit(kExposureLimit);
  do {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, kSlice);
  } while (!limit.hasExpired() && !window.windowHandle()->isExposed());
}

}  // namespace repvolta
