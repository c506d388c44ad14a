#include "platform/desktop/DesktopSoundPlayer.h"

#include <algorithm>
#include <chrono>
#include <span>
#include <utility>

#include "base/WholeFile.h"
#include "platform/desktop/DesktopAudioOutputs.h"
#include "platform/desktop/PulseDevices.h"
#include "platform/desktop/PulseStream.h"
#include "sound/WavReader.h"

namespace repvolta {

namespace {

using std::chrono::milliseconds;

constexpr std::size_t kLargestFile = std::size_t{64} * 1024 * 1024;
constexpr std::size_t kSampleSize = 2;  // bytes
constexpr milliseconds kPiece{20};
constexpr milliseconds kBuffer{400};
/// Precedes the sound, because an output that wakes up may swallow the first moment.
constexpr milliseconds kLeadIn{200};
/// Follows the sound. When the last of it has been taken, at most a buffer of it is still to be
/// heard, and not the sound.
constexpr milliseconds kSilence{600};
/// An output without cable may take a while to wake up.
constexpr milliseconds kLongestOpening{5000};
constexpr milliseconds kLongestPause{3000};

constexpr DeviceKind kKind{.name = "audio output", .works = "take sound"};

Sound ReadSound(const std::string& file) {
  try {
    return ReadWav(ReadWholeFile(file, kLargestFile));
  } catch (const WavError& error) {
    throw SoundError("The sound cannot be played: " + std::string(error.what()) + ".");
  }
}

/// The sound in 16 bits and one channel, between the silence before and after it.
Bytes SamplesOf(const Sound& sound) {
  const auto silence = [&](milliseconds duration) {
    return static_cast<std::size_t>(duration.count()) * sound.rate / 1000 * kSampleSize;
  };
  const Bytes wav = EncodeWav(sound, {.rate = sound.rate, .bits = 16, .channels = 1});
  Bytes samples(silence(kLeadIn));
  samples.insert(samples.end(), wav.begin() + kWavHeaderSize, wav.end());
  samples.resize(samples.size() + silence(kSilence));
  return samples;
}

/// The device, and what it has to play.
struct Feed {
  QByteArray device;
  std::string name;
  std::uint32_t rate;
  Bytes samples;
};

/// Returns when the sound has ended or is stopped. Throws SoundError.
void PlayToEnd(const Feed& feed, SoundProgress& progress) {
  const PulseStream stream = ConnectPulse({.direction = PA_STREAM_PLAYBACK,
                                           .device = feed.device,
                                           .purpose = "Instruction",
                                           .samples = PA_SAMPLE_S16LE,
                                           .rate = feed.rate,
                                           .buffer = kBuffer});
  if (!stream) throw SoundError(DeviceDoesNotWork(kKind, feed.name));
  progress.SetMoved();
  const std::size_t piece =
      static_cast<std::size_t>(kPiece.count()) * feed.rate / 1000 * kSampleSize;
  for (std::span<const Byte> rest = feed.samples; !rest.empty() && !progress.IsStopped();) {
    const std::size_t size = std::min(piece, rest.size());
    // Waits until the output's buffer has room.
    if (pa_simple_write(stream.get(), rest.data(), size, nullptr) < 0) {
      throw SoundError(DeviceIsGone(kKind, feed.name));
    }
    progress.SetMoved();
    rest = rest.subspan(size);
  }
}

}  // namespace

void DesktopSoundPlayer::Play(const std::string& file, const ChosenOutput& output, Ended ended) {
  Stop();
  const QAudioDevice device =
      FindDevice(StillThere(OutputsInOrder(), PA_STREAM_PLAYBACK), output, kKind);
  const Sound sound = ReadSound(file);
  Feed feed{device.id(), device.description().toStdString(), sound.rate, SamplesOf(sound)};
  thread_.Start(
      {.kind = kKind,
       .device = device,
       .direction = PA_STREAM_PLAYBACK,
       .longestOpening = kLongestOpening,
       .longestPause = kLongestPause,
       .run = [feed = std::move(feed)](SoundProgress& progress) { PlayToEnd(feed, progress); },
       .ended = std::move(ended)});
}

}  // namespace repvolta
