#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

namespace repvolta {

/// A bus of its own for one test, with stand-ins of services. Uses the current directory; all its
/// processes end with it.
class PrivateBus {
 public:
  /// Fails the test, with the reason, when the bus cannot be started.
  PrivateBus();
  ~PrivateBus();
  PrivateBus(const PrivateBus&) = delete;
  PrivateBus& operator=(const PrivateBus&) = delete;

  const QString& Address() const { return address_; }

  /// Starts a stand-in, a template of python-dbusmock, and waits until it is ready.
  void StartService(const QString& standIn, const QByteArray& parameters);

 private:
  QProcess daemon_;
  QProcess service_;
  QString address_;
};

}  // namespace repvolta
