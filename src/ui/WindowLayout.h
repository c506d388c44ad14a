#pragma once

#include <QWidget>
#include <string>

namespace repvolta {

// The size of the window and the widths of its columns are kept in `file`, apart from the program's
// settings. If `file` is empty, they are kept in the user's desktop settings.

void SaveWindowLayout(const QWidget& window, const std::string& file);

/// Leaves the window unchanged if nothing was saved.
void RestoreWindowLayout(QWidget& window, const std::string& file);

/// A text of the window, such as a folder; "" if none was kept.
QString KeptText(const QWidget& window, const QString& name, const std::string& file);
void KeepText(const QWidget& window, const QString& name, const QString& text,
              const std::string& file);

/// "window.ini" in the program directory if that is the executable's own folder, where all files of
/// the program stay; else empty.
std::string WindowLayoutFile(const std::string& programDirectory, const std::string& executable);

/// Makes the file dialog keep its own size and folders in "QtProject.conf" in `folder` instead of
/// the user's desktop settings.
void KeepFileDialogIn(const std::string& folder);

}  // namespace repvolta
