#include "platform/desktop/DesktopMicrophone.h"

#include <QMediaDevices>
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <utility>

#include "platform/desktop/PulseDevices.h"
#include "platform/desktop/PulseStream.h"

namespace repvolta {
namespace {

using std::chrono::milliseconds;

constexpr std::size_t kPiece = Microphone::kRate / 50;  // samples: 20 ms
/// A person who has pressed a key waits that long and no longer.
constexpr milliseconds kLongestOpening{2800};
constexpr milliseconds kLongestPause{2500};
constexpr float kFullScale = 32768;

constexpr DeviceKind kKind{.name = "microphone", .works = "give any sound"};

QList<QAudioDevice> InputsInOrder() {
  QList<QAudioDevice> inputs =
      DefaultFirst(StillThere(QMediaDevices::audioInputs(), PA_STREAM_RECORD));
  // Some sound systems list as inputs what their outputs play.
  inputs.removeIf([](const QAudioDevice& device) { return device.id().endsWith(".monitor"); });
  return inputs;
}

using Post = std::function<void(std::vector<float> samples)>;

/// Returns when it is stopped. Throws SoundError.
void ListenToEnd(const QAudioDevice& device, const Post& post, SoundProgress& progress) {
  const std::string name = device.description().toStdString();
  const PulseStream stream = ConnectPulse({.direction = PA_STREAM_RECORD,
                                           .device = device.id(),
                                           .purpose = "Recording",
                                           .samples = PA_SAMPLE_S16NE,
                                           .rate = Microphone::kRate,
                                           .buffer = milliseconds(20)});
  if (!stream) throw SoundError(DeviceDoesNotWork(kKind, name));
  std::array<std::int16_t, kPiece> piece{};
  while (!progress.IsStopped()) {
    if (pa_simple_read(stream.get(), piece.data(), sizeof piece, nullptr) < 0) {
      throw SoundError(DeviceIsGone(kKind, name));
    }
    progress.SetMoved();
    std::vector<float> samples(piece.size());
    std::ranges::transform(piece, samples.begin(), [](std::int16_t sample) {
      return static_cast<float>(sample) / kFullScale;
    });
    post(std::move(samples));
  }
}

}  // namespace

std::vector<std::string> DesktopMicrophone::Inputs() { return DescriptionsOf(InputsInOrder()); }

void DesktopMicrophone::Open(const ChosenInput& input, Heard heard, Lost lost) {
  Close();
  const QAudioDevice device = FindDevice(InputsInOrder(), input, kKind);
  listener_ = std::make_shared<const Heard>(std::move(heard));
  const Post post = [this, listener = listener_,
                     call = mailbox_.Poster()](std::vector<float> samples) {
    call([this, listener, samples = std::move(samples)] { Tell(listener, samples); });
  };
  thread_.Start(
      {.kind = kKind,
       .device = device,
       .direction = PA_STREAM_RECORD,
       .longestOpening = kLongestOpening,
       .longestPause = kLongestPause,
       .run = [device, post](SoundProgress& progress) { ListenToEnd(device, post, progress); },
       .ended =
           [this, lost = std::move(lost)](const std::string& reason) {
             Close();
             lost(reason);
           }});
}

void DesktopMicrophone::Close() {
  thread_.Stop();
  listener_.reset();
}

/// What was heard before the input was closed does not count.
void DesktopMicrophone::Tell(const Listener& listener, std::span<const float> samples) const {
  if (listener == listener_) (*listener)(samples);
}

}  // namespace repvolta
