#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <vector>

#include "platform/ChildProcess.h"
#include "sound/Sound.h"

namespace repvolta {

/// Far longer than a working engine needs for any text.
inline constexpr std::chrono::milliseconds kEngineLimit{30000};

/// The command-line program of a speech engine. Texts reach it through a file that nobody else can
/// read, never through an argument.
class EngineProgram {
 public:
  EngineProgram(ChildProcesses& processes, std::string program,
                std::chrono::milliseconds limit = kEngineLimit)
      : processes_(processes), program_(std::move(program)), limit_(limit) {}

  /// The engine's standard output; "" when the engine is missing or fails.
  std::string Output(const std::vector<std::string>& arguments) const;

  struct Files {
    std::string text;   // read by the engine, also its standard input
    std::string sound;  // the WAV file for the engine to write
  };
  using Arguments = std::function<std::vector<std::string>(const Files&)>;

  /// The spoken `text`. Throws SpeechError.
  Sound Speak(const std::string& text, const Arguments& arguments) const;

 private:
  void Run(const std::vector<std::string>& arguments, const std::string& inputFile) const;
  Sound ReadSound(const std::string& file) const;

  ChildProcesses& processes_;
  std::string program_;
  std::chrono::milliseconds limit_;
};

}  // namespace repvolta
