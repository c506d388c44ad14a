#include "ui/WindowLayout.h"

#include <QSettings>
#include <QSplitter>
#include <memory>

#include "base/FileNames.h"
#include "base/ProgramFiles.h"

namespace repvolta {
namespace {

constexpr const char* kProgram = "repvolta";
constexpr const char* kGeometry = "geometry";

QString KeyOf(const QWidget& window, const QString& name) {
  return window.objectName() + "/" + name;
}

std::unique_ptr<QSettings> Open(const std::string& file) {
  if (file.empty()) return std::make_unique<QSettings>(kProgram, kProgram);
  return std::make_unique<QSettings>(QString::fromStdString(file), QSettings::IniFormat);
}

}  // namespace

void SaveWindowLayout(const QWidget& window, const std::string& file) {
  const auto opened = Open(file);
  QSettings& settings = *opened;
  settings.setValue(KeyOf(window, kGeometry), window.saveGeometry());
  for (const QSplitter* splitter : window.findChildren<QSplitter*>()) {
    settings.setValue(KeyOf(window, splitter->objectName()), splitter->saveState());
  }
}

void RestoreWindowLayout(QWidget& window, const std::string& file) {
  const auto opened = Open(file);
  const QSettings& settings = *opened;
  window.restoreGeometry(settings.value(KeyOf(window, kGeometry)).toByteArray());
  for (QSplitter* splitter : window.findChildren<QSplitter*>()) {
    splitter->restoreState(settings.value(KeyOf(window, splitter->objectName())).toByteArray());
  }
}

QString KeptText(const QWidget& window, const QString& name, const std::string& file) {
  return Open(file)->value(KeyOf(window, name)).toString();
}

void KeepText(const QWidget& window, const QString& name, const QString& text,
              const std::string& file) {
  Open(file)->setValue(KeyOf(window, name), text);
}

std::string WindowLayoutFile(const std::string& programDirectory, const std::string& executable) {
  return programDirectory == FolderOf(executable) ? programDirectory + kWindowLayoutFile : "";
}

void KeepFileDialogIn(const std::string& folder) {
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QString::fromStdString(folder));
}

}  // namespace repvolta
