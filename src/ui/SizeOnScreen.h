#pragma once

#include <QWidget>

namespace repvolta {

/// The size, or as much of it as a window can have on its screen with its frame.
QSize SizeOnScreen(const QWidget& window, const QSize& size);

}  // namespace repvolta
