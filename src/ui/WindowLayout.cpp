#include "ui/WindowLayout.h"

#include <QSettings>
#include <QSplitter>

namespace repvolta {
namespace {

constexpr const char* kProgram = "repvolta";
constexpr const char* kGeometry = "geometry";

QString KeyOf(const QWidget& window, const QString& name) {
  return window.objectName() + "/" + name;
}

}  // namespace

void SaveWindowLayout(const QWidget& window) {
  QSettings settings(kProgram, kProgram);
  settings.setValue(KeyOf(window, kGeometry), window.saveGeometry());
  for (const QSplitter* splitter : window.findChildren<QSplitter*>()) {
    settings.setValue(KeyOf(window, splitter->objectName()), splitter->saveState());
  }
}

void RestoreWindowLayout(QWidget& window) {
  const QSettings settings(kProgram, kProgram);
  window.restoreGeometry(settings.value(KeyOf(window, kGeometry)).toByteArray());
  for (QSplitter* splitter : window.findChildren<QSplitter*>()) {
    splitter->restoreState(settings.value(KeyOf(window, splitter->objectName())).toByteArray());
  }
}

}  // namespace repvolta
