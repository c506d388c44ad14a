#pragma once

#include <QWidget>
#include <string>

#include "editing/FileQuestion.h"

namespace repvolta {

enum class FileChoice { kToOpen, kToSave };

/// The file dialog for one file, "" when it was cancelled. To save, it asks before an existing file
/// is chosen. It begins in the folder where it was left, at first in the home folder.
std::string PickFile(QWidget* owner, const FileQuestion& question, FileChoice choice,
                     const std::string& layoutFile);

}  // namespace repvolta
