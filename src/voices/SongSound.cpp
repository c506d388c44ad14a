#include "voices/SongSound.h"

#include <algorithm>
#include <bit>
#include <chrono>
#include <cstring>
#include <ebur128.h>
#include <memory>
#include <new>

#include "base/WholeFile.h"
#include "mp3/MiddleFrames.h"
#include "speech/PrivateFolder.h"

namespace repvolta {
namespace {

constexpr std::size_t kMostSamples = std::size_t{16} * 1024 * 1024;  // bytes
constexpr std::chrono::milliseconds kLongestDecoding{20000};
constexpr float kFullScale = 32768;

// The decoder writes the machine's own byte order.
static_assert(std::endian::native == std::endian::little);

void RunDecoder(ChildProcesses& processes, const std::string& decoder, const std::string& song,
                const std::string& samples) {
  const ChildResult result =
      processes.Run({.program = decoder,
                     .arguments = {"--decode", "-t", "--mp3input", "--quiet", song, samples},
                     .limit = kLongestDecoding});
  switch (result.end) {
    case ChildEnd::kNotStarted:
      throw SongError("There is no decoder: the program lame is missing");
    case ChildEnd::kKilledAtLimit:
      throw SongError("Its decoding took too long");
    case ChildEnd::kCrashed:
      throw SongError("It could not be decoded");
    case ChildEnd::kExited:
      if (result.exitCode != 0) throw SongError("It could not be decoded");
  }
}

struct StateCloser {
  void operator()(ebur128_state* state) const { ebur128_destroy(&state); }
};

}  // namespace

SongSound DecodeMiddle(ChildProcesses& processes, const std::string& decoder,
                       const std::string& song) {
  const FramesOfSong frames = MiddleFrames(song, kMeasuredSeconds);
  if (frames.bytes.empty()) throw SongError("It is no MP3 file");
  const PrivateFolder folder;
  const std::string raw = folder.Path() + kSongSamplesFile;
  WriteWholeFile(folder.Path() + kSongFile, frames.bytes);
  RunDecoder(processes, decoder, folder.Path() + kSongFile, raw);
  const Bytes bytes = ReadWholeFile(raw, kMostSamples);
  SongSound sound{frames.rate, frames.channels, {}};
  const std::size_t frameSize = sizeof(std::int16_t) * frames.channels;
  sound.samples.resize(bytes.size() / frameSize * frames.channels);
  std::memcpy(sound.samples.data(), bytes.data(), sound.samples.size() * sizeof(std::int16_t));
  return sound;
}

double LoudnessOf(const SongSound& sound) {
  const std::unique_ptr<ebur128_state, StateCloser> state(
      ebur128_init(sound.channels, sound.rate, EBUR128_MODE_I));
  if (!state) throw std::bad_alloc();
  if (sound.channels == 1) ebur128_set_channel(state.get(), 0, EBUR128_DUAL_MONO);
  ebur128_add_frames_short(state.get(), sound.samples.data(),
                           sound.samples.size() / sound.channels);
  double loudness = 0;
  ebur128_loudness_global(state.get(), &loudness);
  return loudness;
}

Sound MixedMiddle(const SongSound& sound, double seconds) {
  const std::size_t frames = sound.samples.size() / sound.channels;
  const std::size_t count = std::min(frames, static_cast<std::size_t>(seconds * sound.rate));
  const std::size_t first = (frames - count) / 2;
  Sound mixed{sound.rate, std::vector<float>(count)};
  for (std::size_t i = 0; i < count * sound.channels; ++i) {
    mixed.samples[i / sound.channels] +=
        static_cast<float>(sound.samples[first * sound.channels + i]) / kFullScale /
        static_cast<float>(sound.channels);
  }
  return mixed;
}

}  // namespace repvolta
