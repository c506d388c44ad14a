#include "platform/desktop/DesktopSoundPlayer.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <pulse/simple.h>
#include <span>
#include <thread>
#include <utility>

#include "base/WholeFile.h"
#include "platform/desktop/DesktopAudioOutputs.h"
#include "sound/WavReader.h"

namespace repvolta {

namespace {

using std::chrono::milliseconds;
using Steady = std::chrono::steady_clock;
using Time = Steady::time_point;

constexpr std::size_t kLargestFile = std::size_t{64} * 1024 * 1024;
constexpr std::size_t kSampleSize = 2;  // bytes
constexpr milliseconds kPiece{20};
constexpr milliseconds kWatchInterval{200};
constexpr milliseconds kBuffer{400};
/// Precedes the sound, because an output that wakes up may swallow the first moment.
constexpr milliseconds kLeadIn{200};
/// Follows the sound. When the last of it has been taken, at most a buffer of it is still to be
/// heard, and not the sound.
constexpr milliseconds kSilence{600};
/// An output without cable may take a while to wake up.
constexpr milliseconds kLongestOpening{5000};
constexpr milliseconds kLongestPause{3000};
constexpr milliseconds kLastMoment{1000};

std::string Quoted(const std::string& name) { return "\"" + name + "\""; }

std::string Gone(const std::string& name) {
  return "The audio output " + Quoted(name) + " is not there any more.";
}

std::string Refused(const std::string& name) {
  return "The audio output " + Quoted(name) + " does not take sound.";
}

/// The same description may stand in the list twice, and the list may have changed since.
QAudioDevice DeviceOf(const ChosenOutput& output) {
  const QList<QAudioDevice> devices = OutputsInOrder();
  if (devices.isEmpty()) throw SoundError("This computer has no audio output.");
  if (output.name.empty()) return devices.first();
  const QString name = QString::fromStdString(output.name);
  if (devices.value(output.entry).description() == name) return devices.at(output.entry);
  const auto found = std::find_if(devices.begin(), devices.end(), [&](const QAudioDevice& device) {
    return device.description() == name;
  });
  if (found == devices.end()) throw SoundError(Gone(output.name));
  return *found;
}

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

/// A connection with the sound system on which one sound is on its way to an output.
class Stream {
 public:
  /// Throws SoundError when the output does not take sound.
  Stream(const QAudioDevice& device, std::uint32_t rate)
      : name_(device.description().toStdString()) {
    const pa_sample_spec format{.format = PA_SAMPLE_S16LE, .rate = rate, .channels = 1};
    constexpr auto kAsUsual = static_cast<std::uint32_t>(-1);
    const auto buffer = static_cast<std::uint32_t>(
        pa_usec_to_bytes(std::chrono::microseconds(kBuffer).count(), &format));
    const pa_buffer_attr attributes{.maxlength = kAsUsual,
                                    .tlength = buffer,
                                    .prebuf = kAsUsual,
                                    .minreq = kAsUsual,
                                    .fragsize = kAsUsual};
    stream_.reset(pa_simple_new(nullptr, "Repvolta", PA_STREAM_PLAYBACK, device.id().constData(),
                                "Instruction", &format, nullptr, &attributes, nullptr));
    if (!stream_) throw SoundError(Refused(name_));
  }

  /// Waits until the output's buffer has room. Throws SoundError when the output is gone.
  void Write(std::span<const Byte> samples) {
    if (pa_simple_write(stream_.get(), samples.data(), samples.size(), nullptr) < 0) {
      throw SoundError(Gone(name_));
    }
  }

 private:
  struct Free {
    void operator()(pa_simple* stream) const { pa_simple_free(stream); }
  };

  std::string name_;
  std::unique_ptr<pa_simple, Free> stream_;
};

}  // namespace

/// Shared by the player and the thread that feeds the output.
struct DesktopSoundPlayer::Feed {
  QAudioDevice device;
  std::uint32_t rate = 0;
  Bytes samples;
  std::mutex mutex;
  std::condition_variable changed;
  bool isStopped = false;          // by the player
  std::optional<Time> taken = {};  // when the output took the latest piece; before, it is opened
  bool hasEnded = false;           // the thread

  /// Returns when the sound has ended or is stopped: "", or why it was not heard to its end.
  std::string PlayToEnd();

  bool IsStopped() {
    const std::lock_guard lock(mutex);
    return isStopped;
  }

  void Stop() {
    const std::lock_guard lock(mutex);
    isStopped = true;
  }

  bool HasBegun() {
    const std::lock_guard lock(mutex);
    return taken.has_value();
  }

  bool IsStuck() {
    const std::lock_guard lock(mutex);
    return taken && Steady::now() - *taken > kLongestPause;
  }

  void SetTaken() {
    const std::lock_guard lock(mutex);
    taken = Steady::now();
  }

  void SetEnded() {
    const std::lock_guard lock(mutex);
    hasEnded = true;
    changed.notify_all();
  }

  void WaitForEnd(std::chrono::milliseconds limit) {
    std::unique_lock lock(mutex);
    changed.wait_for(lock, limit, [this] { return hasEnded; });
  }
};

std::string DesktopSoundPlayer::Feed::PlayToEnd() {
  try {
    Stream stream(device, rate);
    SetTaken();
    const std::size_t piece = static_cast<std::size_t>(kPiece.count()) * rate / 1000 * kSampleSize;
    for (std::span<const Byte> rest = samples; !rest.empty() && !IsStopped();) {
      const std::size_t size = std::min(piece, rest.size());
      stream.Write(rest.first(size));
      SetTaken();
      rest = rest.subspan(size);
    }
  } catch (const SoundError& error) {
    return error.what();
  }
  return "";
}

DesktopSoundPlayer::DesktopSoundPlayer() {
  // Asked again and again, because not every sound system tells when an output has gone.
  watch_.setInterval(kWatchInterval);
  QObject::connect(&watch_, &QTimer::timeout, &watch_, [this] { EndIfUnplugged(); });
}

DesktopSoundPlayer::~DesktopSoundPlayer() {
  const std::shared_ptr<Feed> feed = feed_;
  DesktopSoundPlayer::Stop();
  if (feed) feed->WaitForEnd(kLastMoment);
}

void DesktopSoundPlayer::Play(const std::string& file, const ChosenOutput& output, Ended ended) {
  Stop();
  device_ = DeviceOf(output);
  const Sound sound = ReadSound(file);
  feed_ = std::make_shared<Feed>();
  feed_->device = device_;
  feed_->rate = sound.rate;
  feed_->samples = SamplesOf(sound);
  ended_ = std::move(ended);
  std::thread([this, feed = feed_, post = mailbox_.Poster()] {
    const std::string failure = feed->PlayToEnd();
    feed->SetEnded();
    post([this, feed, failure] { End(feed, failure); });
  }).detach();
  watch_.start();
  QTimer::singleShot(kLongestOpening, &watch_, [this, feed = feed_] {
    if (!feed->HasBegun()) End(feed, Refused(feed->device.description().toStdString()));
  });
}

void DesktopSoundPlayer::Stop() {
  if (!feed_) return;
  watch_.stop();
  feed_->Stop();
  feed_.reset();
  ended_ = {};
}

/// A sound that was stopped has no end any more.
void DesktopSoundPlayer::End(const std::shared_ptr<Feed>& feed, const std::string& failure) {
  if (feed != feed_) return;
  const Ended ended = std::exchange(ended_, {});
  Stop();
  ended(failure);
}

/// The sound system might go on with another output, where nobody expects the sound.
void DesktopSoundPlayer::EndIfUnplugged() {
  if (feed_ && (feed_->IsStuck() || !OutputsInOrder().contains(device_))) {
    End(feed_, Gone(device_.description().toStdString()));
  }
}

}  // namespace repvolta
