#include "support/RunProgram.h"

#include <QProcess>
#include <gtest/gtest.h>
#include <sstream>

namespace repvolta {
namespace {

constexpr int kLimit = 60000;  // milliseconds

QProcessEnvironment Extended(const Environment& settings) {
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  for (const std::string& setting : settings) {
    const std::size_t equals = setting.find('=');
    environment.insert(QString::fromStdString(setting.substr(0, equals)),
                       QString::fromStdString(setting.substr(equals + 1)));
  }
  return environment;
}

}  // namespace

ProgramRun RunProgram(const std::string& program, const std::vector<std::string>& arguments,
                      const Environment& environment, const std::function<void(long)>& started) {
  QProcess process;
  process.setProcessEnvironment(Extended(environment));
  QStringList list;
  for (const std::string& argument : arguments) list << QString::fromStdString(argument);
  process.start(QString::fromStdString(program), list);
  process.waitForStarted(kLimit);
  if (started) started(static_cast<long>(process.processId()));
  const bool ended = process.waitForFinished(kLimit);
  ProgramRun run;
  if (ended && process.exitStatus() == QProcess::NormalExit) run.status = process.exitCode();
  run.output = process.readAllStandardOutput().toStdString();
  run.errors = process.readAllStandardError().toStdString();
  return run;
}

ProgramRun RunWithMounts(const std::string& mounts, const std::vector<std::string>& commandLine) {
  std::vector<std::string> arguments = {"-Urm", "sh", "-c", mounts + " && exec \"$0\" \"$@\""};
  arguments.insert(arguments.end(), commandLine.begin(), commandLine.end());
  ProgramRun run = RunProgram("unshare", arguments);
  if (run.output.empty()) {
    ADD_FAILURE() << commandLine.front() << " did not start behind " << mounts
                  << "; may this user mount in a name space? " << run.errors;
  }
  return run;
}

ProgramRun RunOnDevice(const std::string& folder, const std::string& options,
                       const std::vector<std::string>& commandLine) {
  return RunWithMounts("mount -t tmpfs -o " + options + " tmpfs " + folder, commandLine);
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

std::string LastLine(const std::string& text) {
  const std::vector<std::string> lines = Lines(text);
  return lines.empty() ? "" : lines.back();
}

}  // namespace repvolta
