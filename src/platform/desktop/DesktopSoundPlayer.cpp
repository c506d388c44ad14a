#include "platform/desktop/DesktopSoundPlayer.h"

#include <QAudioSink>
#include <QBuffer>
#include <QEventLoop>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

#include "base/WholeFile.h"
#include "platform/desktop/DesktopAudioOutputs.h"
#include "sound/WavReader.h"

namespace repvolta {

namespace {

using std::chrono::milliseconds;
using Time = std::chrono::steady_clock;

constexpr std::size_t kLargestFile = std::size_t{64} * 1024 * 1024;
constexpr milliseconds kTick{20};
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

QAudioFormat FormatFor(const QAudioDevice& device, const Sound& sound) {
  QAudioFormat format;
  format.setSampleRate(static_cast<int>(sound.rate));
  format.setChannelCount(1);
  format.setSampleFormat(QAudioFormat::Int16);
  if (device.isFormatSupported(format)) return format;
  format.setSampleRate(device.preferredFormat().sampleRate());
  format.setChannelCount(device.preferredFormat().channelCount());
  return format;
}

QByteArray Silence(const QAudioFormat& format, milliseconds duration) {
  return {format.bytesForDuration(std::chrono::microseconds(duration).count()), '\0'};
}

/// The sound in the format, between the silence before and after it.
QByteArray SamplesOf(const Sound& sound, const QAudioFormat& format) {
  const Bytes wav =
      EncodeWav(sound, {.rate = static_cast<std::uint32_t>(format.sampleRate()),
                        .bits = 16,
                        .channels = static_cast<std::uint16_t>(format.channelCount())});
  const std::span<const Byte> samples = std::span(wav).subspan(kWavHeaderSize);
  return Silence(format, kLeadIn) +
         QByteArray(reinterpret_cast<const char*>(samples.data()),
                    static_cast<qsizetype>(samples.size())) +
         Silence(format, kSilence);
}

/// One sound on its way to an output, in the thread of its event loop.
class Stream {
 public:
  Stream(const QAudioDevice& device, const QAudioFormat& format, const QByteArray& samples)
      : name_(device.description().toStdString()), sink_(device, format) {
    sink_.setBufferSize(format.bytesForDuration(std::chrono::microseconds(kBuffer).count()));
    source_.setData(samples);
    source_.open(QIODevice::ReadOnly);
    sink_.start(&source_);
  }

  /// A sink that is destroyed while it is active may still ask for samples.
  ~Stream() { sink_.stop(); }
  Stream(const Stream&) = delete;
  Stream& operator=(const Stream&) = delete;

  bool HasEnded() const { return sink_.state() == QAudio::IdleState && source_.atEnd(); }

  /// Why the sound does not go on; "" while it does.
  std::string Failure() {
    if (sink_.state() == QAudio::StoppedState) return Refused(name_);
    if (source_.pos() != position_) {
      position_ = source_.pos();
      moved_ = Time::now();
    }
    return Time::now() - moved_ < kLongestPause ? "" : Gone(name_);
  }

 private:
  std::string name_;
  QBuffer source_;
  QAudioSink sink_;
  qint64 position_ = 0;
  Time::time_point moved_ = Time::now();
};

}  // namespace

/// Shared by the player and the thread that feeds the output.
struct DesktopSoundPlayer::Feed {
  QAudioDevice device;
  QAudioFormat format;
  QByteArray samples;
  std::mutex mutex;
  std::condition_variable changed;
  bool isStopped = false;  // by the player
  bool hasBegun = false;   // the output takes the sound, or has refused it
  bool hasEnded = false;   // the thread

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
    return hasBegun;
  }

  void SetBegun() {
    const std::lock_guard lock(mutex);
    hasBegun = true;
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
  QEventLoop loop;
  Stream stream(device, format, samples);
  SetBegun();
  std::string failure;
  QTimer tick;
  QObject::connect(&tick, &QTimer::timeout, &loop, [&] {
    if (!IsStopped() && !stream.HasEnded()) failure = stream.Failure();
    if (IsStopped() || stream.HasEnded() || !failure.empty()) loop.quit();
  });
  tick.start(kTick);
  loop.exec();
  return failure;
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
  const QAudioFormat format = FormatFor(device_, sound);
  feed_ = std::make_shared<Feed>();
  feed_->device = device_;
  feed_->format = format;
  feed_->samples = SamplesOf(sound, format);
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
  if (feed_ && !OutputsInOrder().contains(device_)) {
    End(feed_, Gone(device_.description().toStdString()));
  }
}

}  // namespace repvolta
