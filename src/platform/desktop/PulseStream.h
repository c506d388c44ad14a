#pragma once

#include <QByteArray>
#include <chrono>
#include <cstdint>
#include <memory>
#include <pulse/simple.h>

namespace repvolta {

/// What goes to a device of the sound system or comes from it: 16 bits, one channel.
struct PulseRequest {
  pa_stream_direction_t direction;
  QByteArray device;
  const char* purpose;  // for the sound system's own window
  pa_sample_format_t samples;
  std::uint32_t rate;
  std::chrono::milliseconds buffer;  // for playing what is held, for recording what comes at once
};

struct PulseStreamCloser {
  void operator()(pa_simple* stream) const { pa_simple_free(stream); }
};

/// A connection with the sound system; closing it drops what is still held.
using PulseStream = std::unique_ptr<pa_simple, PulseStreamCloser>;

/// Waits for the sound system. Nothing when it refuses.
PulseStream ConnectPulse(const PulseRequest& request);

}  // namespace repvolta
