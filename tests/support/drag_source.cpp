#include <QApplication>
#include <QDrag>
#include <QLabel>
#include <QMimeData>
#include <QMouseEvent>
#include <QTimer>
#include <QUrl>
#include <cstdio>

// A window like a file manager's: a press of the mouse drags the addresses given as arguments. When
// the mouse has come, the program prints "entered"; when the drag has begun, "dragging"; when they
// are dropped, it prints what was made of them and ends: drag_source URL...

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

void Say(const char* line) {
  std::puts(line);
  static_cast<void>(std::fflush(stdout));
}

class Source : public QLabel {
 public:
  explicit Source(QList<QUrl> urls) : QLabel("Drag me"), urls_(std::move(urls)) {
    setAlignment(Qt::AlignCenter);
    setWindowTitle("Drag source");
    resize(200, 150);
  }

 protected:
  void enterEvent(QEnterEvent* /*event*/) override {
    if (!entered_) Say("entered");
    entered_ = true;
  }

  void mousePressEvent(QMouseEvent* /*event*/) override {
    QTimer::singleShot(0, this, [] { Say("dragging"); });
    auto* dragged = new QMimeData;
    dragged->setUrls(urls_);
    QDrag drag(this);
    drag.setMimeData(dragged);
    const Qt::DropAction action = drag.exec(Qt::CopyAction | Qt::MoveAction | Qt::LinkAction);
    Say(NameOf(action));
    QApplication::quit();
  }

 private:
  QList<QUrl> urls_;
  bool entered_ = false;
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
