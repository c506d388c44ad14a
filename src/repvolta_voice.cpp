#include <QCoreApplication>
#include <iostream>

#include "clips/VoiceCommand.h"
#include "platform/QtChildProcesses.h"
#include "speech/EspeakEngine.h"
#include "speech/FliteEngine.h"

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  repvolta::QtChildProcesses processes;
  repvolta::FliteEngine flite(repvolta::EngineProgram(processes, "flite"));
  repvolta::EspeakEngine espeak(repvolta::EngineProgram(processes, "espeak-ng"));
  return repvolta::RunVoiceCommand(
      {argv + 1, argv + argc}, {{"flite", &flite}, {"espeak-ng", &espeak}}, std::cout, std::cerr);
}
