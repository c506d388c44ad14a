#include "support/PrivateBus.h"

#include <QProcessEnvironment>
#include <gtest/gtest.h>

#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

constexpr int kLimit = 20000;  // milliseconds

/// Knows no services that it could start, and lets everybody do everything.
constexpr const char* kConfiguration = R"(<busconfig>
  <type>session</type>
  <listen>unix:dir=/tmp</listen>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
)";

/// The first line that the program prints; "" when it prints none.
QString FirstLineOf(QProcess& program) {
  while (!program.canReadLine() && program.waitForReadyRead(kLimit)) {
  }
  return QString::fromUtf8(program.readLine()).trimmed();
}

void End(QProcess& program) {
  if (program.state() == QProcess::NotRunning) return;
  program.kill();
  program.waitForFinished(kLimit);
}

}  // namespace

PrivateBus::PrivateBus() {
  PutFile("bus.conf", kConfiguration);
  daemon_.start("dbus-daemon", {"--nofork", "--print-address", "--config-file=bus.conf"});
  address_ = FirstLineOf(daemon_);
  if (address_.isEmpty()) {
    ADD_FAILURE() << "dbus-daemon did not start: " << daemon_.errorString().toStdString()
                  << daemon_.readAllStandardError().toStdString();
  }
}

PrivateBus::~PrivateBus() {
  End(service_);
  End(daemon_);
}

void PrivateBus::StartService(const QString& standIn, const QByteArray& parameters) {
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("DBUS_SYSTEM_BUS_ADDRESS", address_);
  service_.setProcessEnvironment(environment);
  service_.start("/usr/bin/python3",
                 {"-m", "dbusmock", "--template", standIn, "--parameters", parameters});
  if (FirstLineOf(service_) != "ready") {
    ADD_FAILURE() << standIn.toStdString()
                  << " did not start: " << service_.readAllStandardError().toStdString();
  }
}

}  // namespace repvolta
