#include "platform/desktop/PulseStream.h"

#include "base/Product.h"

namespace repvolta {

PulseStream ConnectPulse(const PulseRequest& request) {
  const pa_sample_spec format{.format = request.samples, .rate = request.rate, .channels = 1};
  constexpr auto kAsUsual = static_cast<std::uint32_t>(-1);
  const auto microseconds =
      static_cast<pa_usec_t>(std::chrono::microseconds(request.buffer).count());
  const auto buffer = static_cast<std::uint32_t>(pa_usec_to_bytes(microseconds, &format));
  const bool plays = request.direction == PA_STREAM_PLAYBACK;
  const pa_buffer_attr attributes{.maxlength = kAsUsual,
                                  .tlength = plays ? buffer : kAsUsual,
                                  .prebuf = kAsUsual,
                                  .minreq = kAsUsual,
                                  .fragsize = plays ? kAsUsual : buffer};
  return PulseStream(pa_simple_new(nullptr, kProductName.data(), request.direction,
                                   request.device.constData(), request.purpose, &format, nullptr,
                                   &attributes, nullptr));
}

}  // namespace repvolta
