#pragma once

#include <QWidget>
#include <string>
#include <vector>

namespace repvolta {

/// The file-open dialog for music; no files when it was cancelled. It begins in `musicPath`, and
/// after songs were picked elsewhere, there, as long as that folder exists and the music path stays
/// the same. This and its size are kept where WindowLayout.h says.
std::vector<std::string> PickMusicFiles(QWidget* owner, const std::string& musicPath,
                                        const std::string& layoutFile);

}  // namespace repvolta
