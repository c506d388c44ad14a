#pragma once

#include "app/ProgramState.h"
#include "platform/ChildProcess.h"
#include "platform/Clock.h"
#include "platform/RandomNumbers.h"
#include "speech/SpeechSynthesizer.h"

namespace repvolta {

/// The state and the services of the program; each main creates one.
struct Program {
  ProgramState& state;
  const Clock& clock;
  RandomNumbers& random;
  ChildProcesses& processes;
  SpeechSynthesizer& speech;
};

}  // namespace repvolta
