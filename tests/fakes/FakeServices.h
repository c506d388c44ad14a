#pragma once

#include <deque>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "platform/ChildProcess.h"
#include "platform/Clock.h"
#include "platform/RandomNumbers.h"
#include "speech/SpeechSynthesizer.h"

#include "support/ClipBytes.h"

namespace repvolta {

/// A clock that a test sets.
class FakeClock : public Clock {
 public:
  explicit FakeClock(double now) : now_(now) {}
  double Now() const override { return now_; }
  void Set(double now) { now_ = now; }

 private:
  double now_;
};

/// Returns the numbers of a script again and again.
class ScriptedNumbers : public RandomNumbers {
 public:
  explicit ScriptedNumbers(std::vector<double> numbers = {0}) : numbers_(std::move(numbers)) {}
  void Seed() override { ++seeded; }
  double Next() override { return numbers_[next_++ % numbers_.size()]; }

  int seeded = 0;

 private:
  std::vector<double> numbers_;
  std::size_t next_ = 0;
};

/// Records the programs that are started; `run` stands in for the program.
class FakeProcesses : public ChildProcesses {
 public:
  ChildResult Run(const ChildCommand& command) override {
    std::string line = command.program;
    for (const std::string& argument : command.arguments) line += " " + argument;
    started.push_back(line);
    if (run) run(command);
    return {.end = ChildEnd::kExited, .exitCode = 0, .output = {}};
  }

  std::vector<std::string> started;
  std::function<void(const ChildCommand&)> run;
};

/// Speaks every text as 100 bytes of sound, unless it is set to fail.
class FakeSpeech : public SpeechSynthesizer {
 public:
  std::vector<std::string> VoiceNames() override { return {"first", "second"}; }

  void SpeakToFile(const SpeechRequest& request) override {
    requests.push_back(request);
    if (fails) throw SpeechError("There is no speech engine");
    std::ofstream(request.file, std::ios::binary) << AsText(ClipBytes(Bytes(100, 's')));
  }

  std::string LastVoice() const override { return requests.empty() ? "" : "first"; }

  std::vector<SpeechRequest> requests;
  bool fails = false;
};

}  // namespace repvolta
