#include <algorithm>
#include <cmath>

#include "sound/WavReader.h"

#include "support/Cost.h"
#include "support/Fuzz.h"

// The input is a WAV file. Its sound must be within bounds, or it must be refused with a reason.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace repvolta;
  Sound sound{};
  std::string reason;
  {
    const LinearCost cost(size);
    try {
      sound = ReadWav({data, size});
    } catch (const WavError& error) {
      reason = error.what();
    }
  }
  if (!reason.empty()) {
    Require(sound.samples.empty(), "a refused file has no sound");
    return 0;
  }
  Require(sound.rate >= 1000 && sound.rate <= 384000, "the rate is within bounds");
  Require(sound.samples.size() <= size, "a sample takes a byte at least");
  Require(std::ranges::all_of(sound.samples, [](float sample) { return std::abs(sample) <= 1.0F; }),
          "samples are within bounds");
  // A truncated file has the same sound up to its end.
  const Sound shorter = [&] {
    try {
      return ReadWav({data, size - std::min<std::size_t>(size, 1)});
    } catch (const WavError&) {
      return Sound{};
    }
  }();
  Require(shorter.samples.size() <= sound.samples.size() &&
              std::ranges::equal(shorter.samples,
                                 std::span(sound.samples).first(shorter.samples.size())),
          "a file that is cut off reads as far as it goes");
  return 0;
}
