#pragma once

#include <QWidget>
#include <string>

namespace repvolta {

// The size of the window and the widths of its columns, kept apart from the program's settings in
// `file`; an empty name stands for the desktop's settings of the user.

void SaveWindowLayout(const QWidget& window, const std::string& file);

/// Leaves the window as it is where nothing was saved.
void RestoreWindowLayout(QWidget& window, const std::string& file);

/// "window.ini" in a program directory that is the executable's own folder, where everything stays;
/// else empty.
std::string WindowLayoutFile(const std::string& programDirectory, const std::string& executable);

/// From now on the file dialog keeps its own size and folders in `folder`, in "QtProject.conf", and
/// not with the desktop's settings of the user.
void KeepFileDialogIn(const std::string& folder);

}  // namespace repvolta
