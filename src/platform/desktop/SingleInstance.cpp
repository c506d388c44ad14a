#include "platform/desktop/SingleInstance.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QDir>
#include <QLocalSocket>
#include <QThread>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace repvolta {
namespace {

constexpr int kPause = 20;  // milliseconds

/// One name for each user and program directory.
QString ServerName(const std::string& programDirectory) {
  const QString path = QDir(QString::fromStdString(programDirectory)).canonicalPath();
  const QByteArray hash = QCryptographicHash::hash(path.toUtf8(), QCryptographicHash::Sha1);
  return QStringLiteral("repvolta-%1-%2").arg(getuid()).arg(QLatin1String(hash.toHex().left(16)));
}

}  // namespace

SingleInstance::SingleInstance(const std::string& programDirectory)
    : directory_(OpenDescriptor(programDirectory, O_RDONLY | O_DIRECTORY)),
      serverName_(ServerName(programDirectory)) {
  // The program must also start where nothing can be locked.
  isFirst_ = lock_.Try(directory_) != EWOULDBLOCK;
}

void SingleInstance::OnLaterStart(std::function<void()> raise) {
  QObject::connect(&server_, &QLocalServer::newConnection, [this, raise = std::move(raise)] {
    while (QLocalSocket* later = server_.nextPendingConnection()) {
      later->deleteLater();
      raise();
    }
  });
  server_.setSocketOptions(QLocalServer::UserAccessOption);
  QLocalServer::removeServer(serverName_);
  server_.listen(serverName_);
}

bool SingleInstance::RaiseFirst(std::chrono::milliseconds limit) const {
  QLocalSocket socket;
  // The first instance may hold the directory before it listens.
  for (QDeadlineTimer end(limit); !end.hasExpired(); QThread::msleep(kPause)) {
    socket.connectToServer(serverName_);
    if (socket.waitForConnected(static_cast<int>(limit.count()))) return true;
  }
  return false;
}

}  // namespace repvolta
