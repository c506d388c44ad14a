#pragma once

#include <functional>
#include <string>

#include "platform/SoundDevice.h"

namespace repvolta {

/// An entry of the list that AudioOutputs::Names gave; without a name, the default output.
using ChosenOutput = ChosenDevice;

/// Plays one WAV file at a time. Nothing waits for the sound.
class SoundPlayer {
 public:
  virtual ~SoundPlayer() = default;

  /// The event loop calls it when the sound has ended: with "" when all of it was heard, otherwise
  /// with the reason, as a sentence.
  using Ended = std::function<void(const std::string& failure)>;

  /// Stops what is heard, reads the file and begins to play it. Throws SoundError when it cannot
  /// begin, FileError when the file cannot be read; `ended` is not called then.
  virtual void Play(const std::string& file, const ChosenOutput& output, Ended ended) = 0;

  /// Ends the sound, if there is one; its `ended` is not called any more.
  virtual void Stop() = 0;
};

}  // namespace repvolta
