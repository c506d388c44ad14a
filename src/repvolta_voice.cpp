#include <QCoreApplication>
#include <iostream>

#include "clips/VoiceCommand.h"
#include "platform/QtChildProcesses.h"
#include "speech/FliteEngine.h"

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  repvolta::QtChildProcesses processes;
  repvolta::FliteEngine engine(repvolta::EngineProgram(processes, "flite"));
  return repvolta::RunVoiceCommand({argv + 1, argv + argc}, engine, std::cout, std::cerr);
}
