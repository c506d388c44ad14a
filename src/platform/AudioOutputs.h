#pragma once

#include <string>
#include <vector>

namespace repvolta {

/// The machine's devices that can play sound.
class AudioOutputs {
 public:
  virtual ~AudioOutputs() = default;

  /// Their descriptions, the default device first; empty when there is none.
  virtual std::vector<std::string> Names() = 0;
};

}  // namespace repvolta
