#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "platform/SoundDevice.h"

namespace repvolta {

/// An entry of the list that Microphone::Inputs gave; without a name, the default input.
using ChosenInput = ChosenDevice;

/// The machine's inputs, of which one at a time is listened to. Nothing waits for the sound.
class Microphone {
 public:
  virtual ~Microphone() = default;

  /// The rate of all that is heard, whatever the input has.
  static constexpr std::uint32_t kRate = 48000;

  /// The event loop calls it with one channel of sound, some milliseconds at a time; full scale is
  /// -1 to 1.
  using Heard = std::function<void(std::span<const float> samples)>;
  /// The event loop calls it when the input gives no sound any more, or never gave any, with the
  /// reason as a sentence. The input is closed then.
  using Lost = std::function<void(const std::string& reason)>;

  /// The descriptions of the inputs, the default one first; empty when there is none.
  virtual std::vector<std::string> Inputs() = 0;

  /// Closes what is open and listens to an input. Throws SoundError when it is not there; neither
  /// `heard` nor `lost` is called then.
  virtual void Open(const ChosenInput& input, Heard heard, Lost lost) = 0;

  /// Ends the listening, if there is any; its calls are not made any more.
  virtual void Close() = 0;
};

}  // namespace repvolta
