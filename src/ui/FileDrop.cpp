#include "ui/FileDrop.h"

#include <QSysInfo>
#include <QTimer>
#include <QUrl>

namespace repvolta {
namespace {

/// Some programs put the computer's own name into the addresses of its files.
bool IsLocal(const QUrl& url) {
  const QString host = url.host();
  return url.isLocalFile() &&
         (host.isEmpty() || host.compare("localhost", Qt::CaseInsensitive) == 0 ||
          host.compare(QSysInfo::machineHostName(), Qt::CaseInsensitive) == 0);
}

/// The bytes themselves, because a name need not be UTF-8.
std::string PathOf(const QUrl& url) {
  return QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1()).toStdString();
}

}  // namespace

std::vector<std::string> LocalPaths(const QMimeData& data) {
  std::vector<std::string> paths;
  for (const QUrl& url : data.urls()) {
    if (!IsLocal(url)) return {};
    paths.push_back(PathOf(url));
  }
  return paths;
}

FileDrop::FileDrop(QWidget* target, std::function<bool()> isOpen,
                   std::function<void(const std::vector<std::string>&)> take)
    : QObject(target), isOpen_(std::move(isOpen)), take_(std::move(take)) {
  target->setAcceptDrops(true);
  target->installEventFilter(this);
}

bool FileDrop::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::DragEnter:
      // Kept for the drop: a program that ends after it cannot be asked again.
      paths_ = LocalPaths(*static_cast<QDropEvent*>(event)->mimeData());
      Answer(*static_cast<QDropEvent*>(event));
      return true;
    case QEvent::DragMove:
      Answer(*static_cast<QDropEvent*>(event));
      return true;
    case QEvent::Drop:
      if (Answer(*static_cast<QDropEvent*>(event))) {
        QTimer::singleShot(0, this, [this, paths = paths_] { take_(paths); });
      }
      return true;
    default:
      return QObject::eventFilter(watched, event);
  }
}

bool FileDrop::Answer(QDropEvent& event) const {
  const Qt::DropActions possible = event.possibleActions();
  const bool isTaken =
      !paths_.empty() && (possible & (Qt::CopyAction | Qt::LinkAction)) && isOpen_();
  if (isTaken) {
    event.setDropAction(possible.testFlag(Qt::CopyAction) ? Qt::CopyAction : Qt::LinkAction);
  }
  event.setAccepted(isTaken);
  return isTaken;
}

}  // namespace repvolta
