#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace repvolta {

/// The reason why a text could not be spoken, in words for the user.
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

  /// The installed voices, numbered in this order; empty when no engine is installed.
  virtual std::vector<std::string> VoiceNames() = 0;

  /// Writes a WAV file with the 46-byte header and samples that really have the wanted format.
  /// Throws SpeechError when there is no such voice or format, or when the engine fails, hangs or
  /// produces silence; FileError when the file cannot be written. Neither leaves a half-written
  /// file.
  virtual void SpeakToFile(const SpeechRequest& request) = 0;

  /// The name of the voice that has spoken last; "" when that is not known.
  virtual std::string LastVoice() const { return ""; }
};

}  // namespace repvolta
