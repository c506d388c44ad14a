#include "platform/desktop/PulseDevices.h"

#include <chrono>
#include <pulse/context.h>
#include <pulse/introspect.h>
#include <pulse/mainloop.h>
#include <pulse/operation.h>
#include <utility>

#include "base/Product.h"

namespace repvolta {
namespace {

using std::chrono::microseconds;
using std::chrono::milliseconds;
using Steady = std::chrono::steady_clock;

constexpr milliseconds kLongestAnswer{1000};

struct Answer {
  QList<QByteArray> identifiers;
  bool isWhole = false;
};

/// Called for each device, and once more without one.
template <typename Info>
void AddDevice(pa_context*, const Info* device, int end, void* data) {
  auto& answer = *static_cast<Answer*>(data);
  if (end == 0) answer.identifiers.append(device->name);
  answer.isWhole = end > 0;
}

}  // namespace

struct PulseDevices::Connection {
  struct Closer {
    void operator()(pa_mainloop* loop) const { pa_mainloop_free(loop); }
    void operator()(pa_context* context) const {
      pa_context_disconnect(context);
      pa_context_unref(context);
    }
    /// An answer that comes later would find nobody.
    void operator()(pa_operation* operation) const {
      pa_operation_cancel(operation);
      pa_operation_unref(operation);
    }
  };

  template <typename Type>
  using Handle = std::unique_ptr<Type, Closer>;

  Handle<pa_mainloop> loop{pa_mainloop_new()};
  Handle<pa_context> context{pa_context_new(pa_mainloop_get_api(loop.get()), kProductName.data())};

  Connection() { pa_context_connect(context.get(), nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr); }

  /// False when that takes too long.
  template <typename Condition>
  bool Await(Condition isMet) const {
    const auto limit = Steady::now() + kLongestAnswer;
    while (!isMet()) {
      const auto rest = std::chrono::duration_cast<microseconds>(limit - Steady::now()).count();
      if (rest <= 0 || pa_mainloop_prepare(loop.get(), static_cast<int>(rest)) < 0 ||
          pa_mainloop_poll(loop.get()) < 0 || pa_mainloop_dispatch(loop.get()) < 0) {
        return false;
      }
    }
    return true;
  }

  bool IsReady() const { return pa_context_get_state(context.get()) == PA_CONTEXT_READY; }

  bool IsConnecting() const {
    return PA_CONTEXT_IS_GOOD(pa_context_get_state(context.get())) && !IsReady();
  }

  pa_operation* Ask(pa_stream_direction_t direction, Answer& answer) const {
    if (direction == PA_STREAM_PLAYBACK) {
      return pa_context_get_sink_info_list(context.get(), AddDevice<pa_sink_info>, &answer);
    }
    return pa_context_get_source_info_list(context.get(), AddDevice<pa_source_info>, &answer);
  }
};

PulseDevices::PulseDevices(pa_stream_direction_t direction)
    : direction_(direction), connection_(std::make_unique<Connection>()) {}

PulseDevices::~PulseDevices() = default;

std::optional<QList<QByteArray>> PulseDevices::Identifiers() {
  if (!connection_->Await([this] { return !connection_->IsConnecting(); }) ||
      !connection_->IsReady()) {
    return std::nullopt;
  }
  Answer answer;
  const Connection::Handle<pa_operation> operation(connection_->Ask(direction_, answer));
  if (!operation) return std::nullopt;
  connection_->Await(
      [&] { return pa_operation_get_state(operation.get()) != PA_OPERATION_RUNNING; });
  if (!answer.isWhole) return std::nullopt;
  return std::move(answer.identifiers);
}

QList<QAudioDevice> StillThere(QList<QAudioDevice> devices, pa_stream_direction_t direction) {
  const auto there = PulseDevices(direction).Identifiers();
  if (!there) return devices;
  devices.removeIf([&](const QAudioDevice& device) { return !there->contains(device.id()); });
  return devices;
}

}  // namespace repvolta
