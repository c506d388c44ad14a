#pragma once

#include <QAudioDevice>
#include <QByteArray>
#include <QList>
#include <memory>
#include <optional>
#include <pulse/def.h>

namespace repvolta {

/// Asks the sound system itself which devices it has now: Qt 6.8 goes on listing one that has gone
/// until another one comes. Those that play, or those that record.
class PulseDevices {
 public:
  explicit PulseDevices(pa_stream_direction_t direction);
  ~PulseDevices();
  PulseDevices(const PulseDevices&) = delete;
  PulseDevices& operator=(const PulseDevices&) = delete;

  /// Their identifiers. Waits at most a second for the sound system; nothing when it is silent.
  std::optional<QList<QByteArray>> Identifiers();

 private:
  struct Connection;

  pa_stream_direction_t direction_;
  std::unique_ptr<Connection> connection_;
};

/// Those of a list that the sound system still has; all when it is silent.
QList<QAudioDevice> StillThere(QList<QAudioDevice> devices, pa_stream_direction_t direction);

}  // namespace repvolta
