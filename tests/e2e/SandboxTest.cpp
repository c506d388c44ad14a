#include <QDeadlineTimer>
#include <QProcess>
#include <cstring>
#include <filesystem>
#include <gmock/gmock.h>
#include <memory>
#include <sys/socket.h>
#include <sys/un.h>

#include "base/Descriptor.h"

#include "e2e/PortableProgram.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

/// A server that takes every connection and never answers.
class SilentServer {
 public:
  explicit SilentServer(const std::string& path)
      : socket_(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    const auto* plain = reinterpret_cast<const sockaddr*>(&address);
    EXPECT_EQ(bind(socket_.Number(), plain, sizeof address), 0) << std::strerror(errno);
    EXPECT_EQ(listen(socket_.Number(), 100), 0) << std::strerror(errno);
  }

 private:
  Descriptor socket_;
};

/// The installed program in "usr" with one clip, and the home folder "home" of somebody who has
/// used it.
class Sandbox : public PortableProgram {
 protected:
  Sandbox() {
    fs::create_directories("usr/bin");
    PutFile("usr/share/repvolta/voice/and.wav", "clip");
    fs::rename("program/repvolta-update", "usr/bin/repvolta-update");
    fs::copy_file(REPVOLTA_BIN "/repvolta", "usr/bin/repvolta");
    fs::create_directories(kProgram);
    fs::rename("program/settings.dat", std::string(kProgram) + "settings.dat");
  }

  using Command = std::vector<std::string>;

  /// The command with these settings of env(1).
  static Command With(Command settings, const Command& command) {
    settings.insert(settings.begin(), "env");
    settings.insert(settings.end(), command.begin(), command.end());
    return settings;
  }

  /// The home folder is "home", where nothing else is said.
  Command AtHome(const Command& settings, const Command& command) const {
    return With({"-u", "XDG_DATA_HOME", "-u", "XDG_CONFIG_HOME", "HOME=" + Full("home"),
                 "QT_QPA_PLATFORM=offscreen"},
                With(settings, command));
  }

  ProgramRun UpdateAtHome(const Command& settings) const {
    Command command = AtHome(settings, {"usr/bin/repvolta-update"});
    command.erase(command.begin());
    return RunProgram("env", command);
  }

  static std::unique_ptr<QProcess> Start(const Command& command) {
    auto process = std::make_unique<QProcess>();
    QStringList words;
    for (const std::string& word : command) words << QString::fromStdString(word);
    process->start(words.takeFirst(), words);
    return process;
  }

  /// Of two windows that are started, one finds that the other is there and can be asked.
  static void ExpectWindow(const Command& command) {
    const auto one = Start(command);
    const auto other = Start(command);
    const QDeadlineTimer limit(10000);
    bool hasEnded = false;
    while (!hasEnded && !limit.hasExpired()) {
      hasEnded = one->waitForFinished(20) || other->waitForFinished(20);
    }
    const bool oneHasEnded = one->state() == QProcess::NotRunning;
    const auto& later = oneHasEnded ? one : other;
    const auto& window = oneHasEnded ? other : one;
    EXPECT_EQ(later->state(), QProcess::NotRunning) << "no window answers";
    EXPECT_EQ(later->exitCode(), 0) << later->readAllStandardError().toStdString();
    EXPECT_EQ(window->state(), QProcess::Running);
    for (QProcess* process : {one.get(), other.get()}) {
      process->kill();
      process->waitForFinished();
    }
  }

  void ExpectWindowAtHome(const Command& settings) const {
    ExpectWindow(AtHome(settings, {"usr/bin/repvolta"}));
  }

  static constexpr const char* kProgram = "home/.local/share/repvolta/";
};

TEST_F(Sandbox, WithoutANamedHomeUsesThatOfTheUser) {
  PutFile("passwd", "root:x:0:0::" + Full("home") + ":/bin/sh\n");
  const ProgramRun run = RunWithMounts(
      "mount --bind passwd /etc/passwd",
      {"sh", "-c", "env -u HOME -u XDG_DATA_HOME usr/bin/repvolta-update 2>&1; echo status $?"});
  EXPECT_EQ(run.output, "status 0\n");
}

TEST_F(Sandbox, WithoutAnyHomeSaysWhatIsMissing) {
  PutFile("passwd", "root:x:0:0:::/bin/sh\n");
  const std::string update = "env -u HOME -u XDG_DATA_HOME usr/bin/repvolta-update 2>&1";
  const ProgramRun run =
      RunWithMounts("mount --bind passwd /etc/passwd", {"sh", "-c", update + "; echo status $?"});
  EXPECT_EQ(run.output,
            "repvolta-update: There is no home folder to keep the workouts in: HOME names none, "
            "and this user has none\nstatus 2\n");
}

TEST_F(Sandbox, IgnoresDataFoldersThatDependOnTheCurrentOne) {
  const ProgramRun run = UpdateAtHome({"XDG_DATA_HOME=data"});
  EXPECT_EQ(run.status, 0) << run.errors;
  ExpectWindowAtHome({"XDG_DATA_HOME=data", "XDG_CONFIG_HOME=config"});
  EXPECT_FALSE(fs::exists("data"));
  EXPECT_FALSE(fs::exists("config"));
}

TEST_F(Sandbox, MayHaveItsFoldersElsewhere) {
  fs::create_directory("elsewhere");
  fs::rename(kProgram, "elsewhere/repvolta");
  const ProgramRun run = UpdateAtHome({"XDG_DATA_HOME=" + Full("elsewhere")});
  EXPECT_EQ(run.status, 0) << run.errors;
  ExpectWindowAtHome({"XDG_DATA_HOME=" + Full("elsewhere"), "XDG_RUNTIME_DIR=" + Full("nowhere"),
                      "XDG_CONFIG_HOME=" + Full("passwd")});
  EXPECT_TRUE(fs::exists("elsewhere/repvolta/voice/and.wav"));
}

TEST_F(Sandbox, HasTheWindowWhereAClipCannotBeBrought) {
  PutFile(std::string(kProgram) + "voice", "in the way, like a disk without room");
  ExpectWindowAtHome({});
}

TEST_F(Sandbox, SaysWhatCouldNotBeBroughtToANewHome) {
  fs::remove_all("home");
  PutFile("home", "in the way, like a disk without room");
  const auto window = Start(AtHome({}, {"usr/bin/repvolta"}));
  window->setReadChannel(QProcess::StandardError);
  std::string errors;
  for (const QDeadlineTimer limit(10000); !limit.hasExpired();) {
    window->waitForReadyRead(20);
    errors += window->readAllStandardError().toStdString();
    if (errors.find("repvolta: ") != std::string::npos) break;
  }
  EXPECT_THAT(errors, HasSubstr("repvolta: " + Full("home")));
  window->kill();
  window->waitForFinished();
}

TEST_F(Sandbox, WritesNothingToWhereItIsInstalled) {
  const std::string readOnly = "mount --bind usr usr && mount -o remount,bind,ro usr && ";
  const Command words = {"unshare", "-Urm", "sh", "-c", readOnly + "cd . && exec \"$0\" \"$@\""};
  Command window = words;
  window.push_back("usr/bin/repvolta");
  ExpectWindow(AtHome({}, window));
  Command update = AtHome({}, words);
  update.push_back("usr/bin/repvolta-update");
  update.erase(update.begin());
  const ProgramRun run = RunProgram("env", update);
  EXPECT_EQ(run.status, 0) << run.errors;
}

TEST_F(Sandbox, NeedsNoBusAndNoSound) {
  const std::string nowhere = "unix:path=" + Full("nowhere");
  const Command settings = {"DBUS_SESSION_BUS_ADDRESS=" + nowhere,
                            "DBUS_SYSTEM_BUS_ADDRESS=" + nowhere,
                            "PULSE_SERVER=unix:" + Full("nowhere")};
  ExpectWindowAtHome(settings);
  EXPECT_EQ(UpdateAtHome(settings).status, 0);
}

TEST_F(Sandbox, DoesNotWaitForABusOrASoundServerThatNeverAnswers) {
  const SilentServer server("silent");
  const std::string silent = "unix:path=" + Full("silent");
  const Command settings = {"DBUS_SESSION_BUS_ADDRESS=" + silent,
                            "DBUS_SYSTEM_BUS_ADDRESS=" + silent,
                            "PULSE_SERVER=unix:" + Full("silent")};
  ExpectWindowAtHome(settings);
  EXPECT_EQ(UpdateAtHome(settings).status, 0);
}

}  // namespace
}  // namespace repvolta
