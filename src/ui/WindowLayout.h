#pragma once

#include <QWidget>

namespace repvolta {

// The size of the window and the widths of its columns, kept with the desktop's settings and apart
// from the program's own.

void SaveWindowLayout(const QWidget& window);

/// Leaves the window as it is where nothing was saved.
void RestoreWindowLayout(QWidget& window);

}  // namespace repvolta
