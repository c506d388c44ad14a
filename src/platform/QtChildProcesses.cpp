#include "platform/QtChildProcesses.h"

#include <QFile>
#include <QProcess>
#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <sstream>
#include <sys/prctl.h>
#include <sys/types.h>
#include <unistd.h>

#include "base/File.h"

namespace repvolta {
namespace {

using Time = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kStep{50};

bool IsProgram(const std::string& path) {
  return FileIsReachable(path) && access(path.c_str(), X_OK) == 0;
}

/// The path to start; "" when there is no such program.
std::string FindProgram(const std::string& name, ProgramPlace place) {
  if (name.empty()) return "";
  if (name.find('/') != std::string::npos) return IsProgram(name) ? name : "";
  if (place == ProgramPlace::kCurrentDirectoryThenPath && IsProgram("./" + name)) {
    return "./" + name;
  }
  const char* path = std::getenv("PATH");
  std::istringstream folders(path == nullptr ? "" : path);
  for (std::string folder; std::getline(folders, folder, ':');) {
    // An empty entry of PATH means the current directory.
    if (folder.empty()) continue;
    std::string program = folder.append("/").append(name);
    if (IsProgram(program)) return program;
  }
  return "";
}

QString Text(const std::string& text) { return QString::fromStdString(text); }

/// One run of one program.
class Child {
 public:
  explicit Child(const ChildCommand& command) : command_(command) {
    const std::string input = command.inputFile;
    process_.setStandardInputFile(input.empty() ? QProcess::nullDevice()
                                                : QFile::decodeName(input.c_str()));
    process_.setStandardErrorFile(QProcess::nullDevice());
    process_.setChildProcessModifier([] {
      setpgid(0, 0);
      prctl(PR_SET_PDEATHSIG, SIGKILL);
    });
  }

  /// A program that nobody waits for must not run on.
  ~Child() { Kill(); }

  bool Start() {
    const std::string program = FindProgram(command_.program, command_.place);
    if (program.empty()) return false;
    QStringList arguments;
    for (const std::string& argument : command_.arguments) arguments << Text(argument);
    process_.start(QFile::decodeName(program.c_str()), arguments, QIODevice::ReadOnly);
    if (!process_.waitForStarted(-1)) return false;
    group_ = static_cast<pid_t>(process_.processId());
    return true;
  }

  void WaitForEnd(const std::function<void()>& whileWaiting) {
    const auto start = Time::now();
    auto nextCall = start + kStep;
    // Reading the output at once keeps a flood of it from filling the memory.
    while (process_.state() != QProcess::NotRunning) {
      process_.waitForReadyRead(static_cast<int>(kStep.count()));
      KeepOutput();
      if (command_.limit && Time::now() - start >= *command_.limit) return Kill();
      if (whileWaiting && Time::now() >= nextCall) {
        whileWaiting();
        nextCall = Time::now() + kStep;
      }
    }
  }

  ChildResult Result() {
    KeepOutput();
    ChildResult result{.output = std::move(output_)};
    if (killed_) {
      result.end = ChildEnd::kKilledAtLimit;
    } else if (process_.exitStatus() == QProcess::CrashExit) {
      result.end = ChildEnd::kCrashed;
    } else {
      result.end = ChildEnd::kExited;
      result.exitCode = process_.exitCode();
    }
    return result;
  }

 private:
  void KeepOutput() {
    const QByteArray bytes = process_.readAllStandardOutput();
    const std::size_t room = kChildOutputLimit - output_.size();
    output_.append(bytes.constData(), std::min(room, static_cast<std::size_t>(bytes.size())));
  }

  void Kill() {
    if (process_.state() == QProcess::NotRunning) return;
    killed_ = true;
    kill(-group_, SIGKILL);
    process_.kill();
    process_.waitForFinished(-1);
  }

  const ChildCommand& command_;
  QProcess process_;
  pid_t group_ = 0;
  std::string output_;
  bool killed_ = false;
};

}  // namespace

ChildResult QtChildProcesses::Run(const ChildCommand& command) {
  Child child(command);
  if (!child.Start()) return {};
  child.WaitForEnd(whileWaiting_);
  return child.Result();
}

}  // namespace repvolta
