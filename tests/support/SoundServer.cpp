#include "support/SoundServer.h"

#include <QDir>
#include <QElapsedTimer>
#include <algorithm>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/types.h>

namespace repvolta {
namespace {

constexpr int kLimit = 20000;                              // milliseconds
constexpr int kMoment = 10;                                // milliseconds
constexpr std::size_t kLongest = std::size_t{20} * 16000;  // samples
constexpr std::ptrdiff_t kQuiet = 8000;                    // samples

void End(QProcess& program) {
  if (program.state() == QProcess::NotRunning) return;
  program.kill();
  program.waitForFinished(kLimit);
}

/// "" when the program writes `line` on its standard error, otherwise what it wrote instead.
std::string ReadUntil(QProcess& program, const char* line) {
  program.setReadChannel(QProcess::StandardError);
  QByteArray said;
  while (!said.contains(line) && program.waitForReadyRead(kLimit)) said += program.readAll();
  if (said.contains(line)) return "";
  return program.errorString().toStdString() + "\n" + said.toStdString();
}

QStringList OutputArguments(const QString& name) {
  // At the rate of the clips, so that nothing is converted; without rewinds, so that what is played
  // is recorded within 50 ms.
  return {"-L",
          QString("module-null-sink sink_name=%1 norewinds=1 rate=16000 channels=1 format=s16le "
                  "sink_properties=device.description=%1")
              .arg(name)};
}

}  // namespace

SoundRecording::SoundRecording(const std::string& output, const QProcessEnvironment& environment)
    : file_(QString::fromStdString(output + ".raw")) {
  recorder_.setProcessEnvironment(environment);
  // Not through a pipe, which would hold up the recorder while the test waits for something else.
  recorder_.setStandardOutputFile(file_.fileName());
  recorder_.start("parec",
                  {"--verbose", "--raw", "--format=s16le", "--rate=16000", "--channels=1",
                   "--latency-msec=20", "--device=" + QString::fromStdString(output) + ".monitor"});
  const std::string said = ReadUntil(recorder_, "Stream successfully created");
  if (!said.empty()) ADD_FAILURE() << "parec did not start: " << said;
  file_.open(QFile::ReadOnly);
}

SoundRecording::~SoundRecording() { End(recorder_); }

bool SoundRecording::Read() {
  QElapsedTimer time;
  for (time.start(); time.elapsed() < kLimit && rest_.size() < 2;) {
    rest_ += file_.readAll();
    if (rest_.size() < 2) recorder_.waitForFinished(kMoment);
  }
  const qsizetype whole = rest_.size() / 2 * 2;
  for (qsizetype i = 0; i < whole; i += 2) {
    const auto low = static_cast<std::uint8_t>(rest_[i]);
    const auto high = static_cast<std::uint8_t>(rest_[i + 1]);
    samples_.push_back(static_cast<std::int16_t>(low | high << 8));
  }
  rest_.remove(0, whole);
  if (whole == 0) {
    ADD_FAILURE() << "parec records nothing.";
  }
  return whole > 0;
}

void SoundRecording::Await(std::size_t samples) {
  const std::size_t wanted = samples_.size() + samples;
  while (samples_.size() < wanted && Read()) {
  }
}

void SoundRecording::AwaitSound() {
  std::size_t seen = samples_.size();
  const std::size_t limit = seen + kLongest;
  for (; samples_.size() < limit && Read(); seen = samples_.size()) {
    if (std::any_of(samples_.begin() + static_cast<std::ptrdiff_t>(seen), samples_.end(),
                    [](std::int16_t sample) { return sample != 0; })) {
      return;
    }
  }
  ADD_FAILURE() << "Nothing is heard.";
}

void SoundRecording::AwaitQuiet() {
  const auto isQuiet = [this] {
    return std::ssize(samples_) >= kQuiet &&
           std::all_of(samples_.end() - kQuiet, samples_.end(),
                       [](std::int16_t sample) { return sample == 0; });
  };
  const std::size_t limit = samples_.size() + kLongest;
  while (!isQuiet() && samples_.size() < limit && Read()) {
  }
  EXPECT_TRUE(isQuiet());
}

SoundServer::SoundServer() : environment_(QProcessEnvironment::systemEnvironment()) {
  const QString folder = QDir::currentPath() + "/sound";
  QDir().mkpath(folder);
  QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  for (const char* name : {"XDG_RUNTIME_DIR", "PULSE_RUNTIME_PATH", "PULSE_STATE_PATH"}) {
    environment_.insert(name, folder);
  }
  environment_.insert("PULSE_COOKIE", folder + "/cookie");
  environment_.insert("PULSE_SERVER", "unix:" + folder + "/socket");
  environment_.remove("DBUS_SESSION_BUS_ADDRESS");
  environment_.remove("DISPLAY");
  server_.setProcessEnvironment(environment_);
  server_.start(
      "pulseaudio",
      QStringList{"-n", "-v", "--daemonize=no", "--use-pid-file=no", "--exit-idle-time=-1",
                  "--disable-shm=yes", "--realtime=no", "--high-priority=no"} +
          OutputArguments("Loudspeaker") + OutputArguments("Headphones") +
          QStringList{"-L",
                      "module-native-protocol-unix auth-anonymous=1 socket=" + folder + "/socket"});
  const std::string said = ReadUntil(server_, "Daemon startup complete");
  if (!said.empty()) ADD_FAILURE() << "pulseaudio did not start: " << said;
}

SoundServer::~SoundServer() {
  for (const auto& player : players_) End(*player);
  Kill();
}

std::unique_ptr<SoundRecording> SoundServer::Record(const std::string& output) {
  return std::make_unique<SoundRecording>(output, environment_);
}

void SoundServer::PlugMicrophone(const std::string& name) {
  const QString source = QString::fromStdString(name);
  Control({"load-module", "module-null-sink", "sink_name=" + source + "Room", "norewinds=1"});
  Control({"load-module", "module-remap-source", "master=" + source + "Room.monitor",
           "source_name=" + source, "source_properties=device.description=" + source});
}

void SoundServer::PlugDeadMicrophone(const std::string& name) {
  const QString source = QString::fromStdString(name);
  Control({"load-module", "module-pipe-source", "source_name=" + source,
           "file=" + QDir::currentPath() + "/sound/" + source,
           "source_properties=device.description=" + source});
}

void SoundServer::PlayTo(const std::string& microphone, const std::string& file) {
  players_.push_back(std::make_unique<QProcess>());
  QProcess& player = *players_.back();
  player.setProcessEnvironment(environment_);
  // Enough of it is held that a busy machine makes no gaps.
  player.start("paplay",
               {"--latency-msec=2000", "--device=" + QString::fromStdString(microphone) + "Room",
                QString::fromStdString(file)});
}

void SoundServer::Unplug(const std::string& device) {
  for (const QByteArray& line : Control({"list", "short", "modules"}).split('\n')) {
    if (!line.contains("_name=" + QByteArray::fromStdString(device) + " ")) continue;
    Control({"unload-module", line.split('\t').first()});
    return;
  }
  ADD_FAILURE() << "There is no " << device;
}

void SoundServer::Hang() { kill(static_cast<pid_t>(server_.processId()), SIGSTOP); }

void SoundServer::Kill() { End(server_); }

QByteArray SoundServer::Control(const QStringList& arguments) {
  QProcess control;
  control.setProcessEnvironment(environment_);
  control.start("pactl", arguments);
  control.waitForFinished(kLimit);
  EXPECT_EQ(control.exitCode(), 0) << control.readAllStandardError().toStdString();
  return control.readAllStandardOutput();
}

}  // namespace repvolta
