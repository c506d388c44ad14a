#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/ChildProcess.h"
#include "sound/Sound.h"

namespace repvolta {

/// Why a song cannot be listened to, in words for the user: "It is no MP3 file".
class SongError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Decoded sound of a song; its channels alternate.
struct SongSound {
  std::uint32_t rate = 0;
  std::uint16_t channels = 0;
  std::vector<std::int16_t> samples;
};

/// How much of a song says how loud it is: from its middle, where neither the beginning nor the end
/// is faded.
inline constexpr double kMeasuredSeconds = 24;

/// The middle of a song as `decoder` decodes it, which is the program of the encoder. A decoder
/// that does not end is killed. Throws SongError, FileError.
SongSound DecodeMiddle(ChildProcesses& processes, const std::string& decoder,
                       const std::string& song);

/// The integrated loudness in LUFS. A single channel counts as heard on both ears. Minus infinity
/// when nothing can be heard.
double LoudnessOf(const SongSound& sound);

/// At most `seconds` from the middle, its channels mixed into one.
Sound MixedMiddle(const SongSound& sound, double seconds);

}  // namespace repvolta
