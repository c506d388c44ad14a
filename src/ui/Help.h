#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include "editing/Dialogs.h"

namespace repvolta {

/// Opens the guide: by F1 in every window of the program, at the page of the open tab or box, and
/// by the commands of the main window, of which there is one for each page.
class Help : public QObject {
  Q_OBJECT

 public:
  /// Adds the commands to the window, which owns this object. `dialogs` must outlive it.
  Help(QWidget& mainWindow, Dialogs& dialogs);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void AddPages(QWidget& mainWindow);
  void OpenFor(const QWidget& window);

  Dialogs& dialogs_;
};

}  // namespace repvolta
