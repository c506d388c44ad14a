#include "support/RunProgram.h"

#include <QProcess>
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

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

}  // namespace repvolta
