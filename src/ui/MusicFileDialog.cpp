#include "ui/MusicFileDialog.h"

#include <QFile>
#include <QFileDialog>

#include "base/FileNames.h"
#include "ui/SizeOnScreen.h"
#include "ui/WheelGuard.h"
#include "ui/WindowLayout.h"

namespace repvolta {
namespace {

constexpr const char* kFolder = "folder";
constexpr const char* kMusicPath = "musicPath";  // when the folder was left

QString StartFolder(const QFileDialog& dialog, const std::string& musicPath,
                    const std::string& layoutFile) {
  const QString start = QFile::decodeName(musicPath.c_str());
  const QString left = KeptText(dialog, kFolder, layoutFile);
  const bool isOfThisPath = KeptText(dialog, kMusicPath, layoutFile) == start;
  return !left.isEmpty() && isOfThisPath && QFileInfo(left).isDir() ? left : start;
}

}  // namespace

std::vector<std::string> PickMusicFiles(QWidget* owner, const std::string& musicPath,
                                        const std::string& layoutFile) {
  QFileDialog dialog(owner, "Music File Selection");
  dialog.setObjectName("MusicFileDialog");
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setOption(QFileDialog::HideNameFilterDetails);
  dialog.setFileMode(QFileDialog::ExistingFiles);
  dialog.setNameFilters({"MP3 (*.MP3)", "WMA (*.WMA)"});
  dialog.setDirectory(StartFolder(dialog, musicPath, layoutFile));
  new WheelGuard(&dialog);
  RestoreWindowLayout(dialog, layoutFile);
  dialog.resize(SizeOnScreen(dialog, dialog.size()));
  const bool isAccepted = dialog.exec() == QDialog::Accepted;
  SaveWindowLayout(dialog, layoutFile);
  if (!isAccepted) return {};
  const QStringList selected = dialog.selectedFiles();
  KeepText(dialog, kFolder, QFileInfo(selected.value(0)).path(), layoutFile);
  KeepText(dialog, kMusicPath, QFile::decodeName(musicPath.c_str()), layoutFile);
  std::vector<std::string> files;
  files.reserve(static_cast<std::size_t>(selected.size()));
  for (const QString& file : selected) {
    files.push_back(QFile::encodeName(file).toStdString());
  }
  return files;
}

}  // namespace repvolta
