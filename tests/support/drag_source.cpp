#include <QApplication>
#include <QDrag>
#include <QLabel>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>
#include <cstdio>

// A window like a file manager's: a press of the mouse drags the addresses given as arguments. When
// they are dropped, the program prints what was made of them and ends: drag_source URL...

namespace repvolta {
namespace {

const char* NameOf(Qt::DropAction action) {
  switch (action) {
    case Qt::CopyAction:
      return "copied";
    case Qt::MoveAction:
      return "moved";
    case Qt::LinkAction:
      return "linked";
    default:
      return "refused";
  }
}

class Source : public QLabel {
 public:
  explicit Source(QList<QUrl> urls) : QLabel("Drag me"), urls_(std::move(urls)) {
    setAlignment(Qt::AlignCenter);
    setWindowTitle("Drag source");
    resize(200, 150);
  }

 protected:
  void mousePressEvent(QMouseEvent* /*event*/) override {
    auto* dragged = new QMimeData;
    dragged->setUrls(urls_);
    QDrag drag(this);
    drag.setMimeData(dragged);
    const Qt::DropAction action = drag.exec(Qt::CopyAction | Qt::MoveAction | Qt::LinkAction);
    std::puts(NameOf(action));
    QApplication::quit();
  }

 private:
  QList<QUrl> urls_;
};

}  // namespace
}  // namespace repvolta

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QList<QUrl> urls;
  for (const QString& url : QApplication::arguments().mid(1)) {
    urls.append(QUrl::fromEncoded(url.toUtf8()));
  }
  repvolta::Source source(urls);
  source.show();
  return QApplication::exec();
}
