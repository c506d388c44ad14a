#include "ui/FileDialogs.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>

#include "ui/SizeOnScreen.h"
#include "ui/WheelGuard.h"
#include "ui/WindowLayout.h"

namespace repvolta {
namespace {

constexpr const char* kFolder = "folder";

QString StartFolder(const QFileDialog& dialog, const std::string& layoutFile) {
  const QString left = KeptText(dialog, kFolder, layoutFile);
  return !left.isEmpty() && QFileInfo(left).isDir() ? left : QDir::homePath();
}

void SetUp(QFileDialog& dialog, const FileQuestion& question, FileChoice choice) {
  dialog.setObjectName(QString::fromStdString(question.name));
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  const bool isToSave = choice == FileChoice::kToSave;
  dialog.setAcceptMode(isToSave ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(isToSave ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  dialog.setNameFilter(QString::fromStdString(question.filter));
  dialog.setDefaultSuffix(QString::fromStdString(question.suffix));
}

}  // namespace

std::string PickFile(QWidget* owner, const FileQuestion& question, FileChoice choice,
                     const std::string& layoutFile) {
  QFileDialog dialog(owner, QString::fromStdString(question.title));
  SetUp(dialog, question, choice);
  dialog.setDirectory(StartFolder(dialog, layoutFile));
  if (!question.file.empty()) dialog.selectFile(QFile::decodeName(question.file.c_str()));
  new WheelGuard(&dialog);
  RestoreWindowLayout(dialog, layoutFile);
  dialog.resize(SizeOnScreen(dialog, dialog.size()));
  const bool isAccepted = dialog.exec() == QDialog::Accepted;
  SaveWindowLayout(dialog, layoutFile);
  if (!isAccepted || dialog.selectedFiles().isEmpty()) return "";
  const QString file = dialog.selectedFiles().constFirst();
  KeepText(dialog, kFolder, QFileInfo(file).path(), layoutFile);
  return QFile::encodeName(file).toStdString();
}

}  // namespace repvolta
