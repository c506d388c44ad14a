#include "ui/SizeOnScreen.h"

#include <QScreen>

namespace repvolta {
namespace {

// Pixels, as screens count them at 100 %: title bar and borders of the usual window managers.
constexpr QSize kFrame = {16, 40};

}  // namespace

QSize SizeOnScreen(const QWidget& window, const QSize& size) {
  return size.boundedTo(window.screen()->availableSize() - kFrame);
}

}  // namespace repvolta
