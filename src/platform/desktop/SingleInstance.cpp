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

constexpr int kPause = 20;              // milliseconds
constexpr qint64 kLongestLeave = 1024;  // bytes

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

void SingleInstance::OnLaterStart(std::function<void(const QByteArray& leave)> raise) {
  QObject::connect(&server_, &QLocalServer::newConnection, [this, raise = std::move(raise)] {
    while (QLocalSocket* later = server_.nextPendingConnection()) {
      later->setReadBufferSize(kLongestLeave);
      QObject::connect(later, &QLocalSocket::disconnected, [later, raise] {
        later->deleteLater();
        raise(later->readAll());
      });
    }
  });
  server_.setSocketOptions(QLocalServer::UserAccessOption);
  QLocalServer::removeServer(serverName_);
  server_.listen(serverName_);
}

bool SingleInstance::RaiseFirst(const QByteArray& leave, std::chrono::milliseconds limit) const {
  QLocalSocket socket;
  // The first instance may hold the directory before it listens.
  for (QDeadlineTimer end(limit); !end.hasExpired(); QThread::msleep(kPause)) {
    socket.connectToServer(serverName_);
    if (!socket.waitForConnected(static_cast<int>(limit.count()))) continue;
    socket.write(leave);
    socket.disconnectFromServer();
    return socket.state() == QLocalSocket::UnconnectedState ||
           socket.waitForDisconnected(static_cast<int>(limit.count()));
  }
  return false;
}

}  // namespace repvolta
