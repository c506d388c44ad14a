#pragma once

#include <QApplication>
#include <QDir>
#include <QPixmap>
#include <QString>
#include <QWidget>

namespace repvolta {

/// Takes pictures of windows into a folder, which it makes.
class Pictures {
 public:
  explicit Pictures(const QString& folder) : folder_(QDir(folder).absolutePath()) {
    QDir().mkpath(folder_);
  }

  /// The window stays open.
  void TakeOpen(QWidget& window, const QString& name) const {
    Settle(window);
    window.grab().save(folder_ + "/" + name + ".png");
  }

  void Take(QWidget& window, const QString& name) const {
    TakeOpen(window, name);
    window.hide();
  }

  /// Shows the window and lets it look at folders and songs, which it does in the background.
  static void Settle(QWidget& window) {
    window.show();
    for (int i = 0; i < 20; ++i) QApplication::processEvents(QEventLoop::AllEvents, 20);
  }

 private:
  QString folder_;
};

}  // namespace repvolta
