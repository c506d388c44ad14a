#pragma once

#include <QWidget>

namespace repvolta {

/// Shows a window that stays above its owner and does not block it. It is on the screen when the
/// call returns, unless the desktop takes very long; input events wait meanwhile.
void ShowAbove(QWidget& window, const QWidget* owner);

}  // namespace repvolta
