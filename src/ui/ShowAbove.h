#pragma once

#include <QWidget>

namespace repvolta {

/// Shows a window that stays above its owner and does not block it. The window is on the screen
/// when the call returns, unless the desktop takes very long. Input events wait during the call.
void ShowAbove(QWidget& window, const QWidget* owner);

}  // namespace repvolta
