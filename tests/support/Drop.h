#pragma once

#include <QApplication>
#include <QDropEvent>
#include <QList>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

namespace repvolta {

/// Drags data over the middle of a widget, as the desktop does.
class Drag {
 public:
  explicit Drag(QWidget& target, Qt::DropActions offered = Qt::CopyAction)
      : target_(target), offered_(offered) {}

  Drag& Urls(const QList<QUrl>& urls) {
    data_.setUrls(urls);
    return *this;
  }
  Drag& Files(const QList<QString>& paths) {
    QList<QUrl> urls;
    for (const QString& path : paths) urls.append(QUrl::fromLocalFile(path));
    return Urls(urls);
  }
  Drag& Text(const QString& text) {
    data_.setText(text);
    return *this;
  }

  /// What the target would do with the data; Qt::IgnoreAction when it refuses.
  Qt::DropAction Enter() {
    QDragEnterEvent event(Place(), offered_, &data_, Qt::LeftButton, {});
    return Answer(event);
  }
  Qt::DropAction Move() {
    QDragMoveEvent event(Place(), offered_, &data_, Qt::LeftButton, {});
    return Answer(event);
  }
  Qt::DropAction Drop() {
    QDropEvent event(Place(), offered_, &data_, Qt::LeftButton, {});
    return Answer(event);
  }

 private:
  QPoint Place() const { return target_.rect().center(); }

  Qt::DropAction Answer(QDropEvent& event) {
    event.ignore();
    event.setDropAction((offered_ & Qt::MoveAction) ? Qt::MoveAction : Qt::CopyAction);
    QApplication::sendEvent(&target_, &event);
    return event.isAccepted() ? event.dropAction() : Qt::IgnoreAction;
  }

  QWidget& target_;
  Qt::DropActions offered_;
  QMimeData data_;
};

}  // namespace repvolta
