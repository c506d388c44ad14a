#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace repvolta {

/// What kept a text from being spoken, in words for the user.
class SpeechError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct SpeechRequest {
  std::string text = {};  // UTF-8
  std::string file = {};  // the WAV file to write; an existing one is replaced
  int voice = 0;          // position in VoiceNames()
  int rate = 0;           // -10 (three times as slow) .. 0 (normal) .. 10 (three times as fast)
  int volume = 100;       // 0 .. 100
  int format = 0;         // position in kSoundFormats
};

/// Speaks texts into WAV files.
class SpeechSynthesizer {
 public:
  virtual ~SpeechSynthesizer() = default;

  /// The installed voices, in the order in which they are numbered; empty when no engine is there.
  virtual std::vector<std::string> VoiceNames() = 0;

  /// Leaves a WAV file with true samples of the wanted format behind the 46-byte header. Throws
  /// SpeechError when there is no such voice or format, or the engine fails, hangs or gives
  /// silence; FileError when the file cannot be written. Then no half-written file is left.
  virtual void SpeakToFile(const SpeechRequest& request) = 0;
};

}  // namespace repvolta
