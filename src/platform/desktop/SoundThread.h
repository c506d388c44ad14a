#pragma once

#include <QAudioDevice>
#include <QTimer>
#include <chrono>
#include <functional>
#include <memory>
#include <pulse/def.h>
#include <string>

#include "platform/Mailbox.h"
#include "platform/desktop/DeviceList.h"

namespace repvolta {

/// How far the work with a device is; shared by the thread that does it and who waits for it.
class SoundProgress {
 public:
  SoundProgress();
  ~SoundProgress();
  SoundProgress(const SoundProgress&) = delete;
  SoundProgress& operator=(const SoundProgress&) = delete;

  /// The work has to end.
  bool IsStopped() const;
  /// The device has just taken or given a piece of the sound, or is open.
  void SetMoved();

 private:
  friend class SoundThread;
  struct State;

  std::unique_ptr<State> state_;
};

/// What is done with a device of the sound system.
struct SoundWork {
  DeviceKind kind;
  QAudioDevice device;
  pa_stream_direction_t direction;                // of the device
  std::chrono::milliseconds longestOpening;       // until it moves
  std::chrono::milliseconds longestPause;         // between two moves
  std::function<void(SoundProgress&)> run;        // in the thread; throws SoundError
  std::function<void(const std::string&)> ended;  // in the event loop: with "" or the reason
};

/// Works with one device at a time in a thread, so that a sound system that hangs holds up nobody,
/// and a busy window does not interrupt the sound. Another thread watches the device. Needs a
/// QGuiApplication.
class SoundThread {
 public:
  SoundThread();
  /// Waits a moment for the threads; those that hang are abandoned.
  ~SoundThread();
  SoundThread(const SoundThread&) = delete;
  SoundThread& operator=(const SoundThread&) = delete;

  /// Stops what is going on. The work ends with a reason when its device has gone, does not open,
  /// or has not moved for too long.
  void Start(SoundWork work);

  /// Ends the work, if there is any; its `ended` is not called any more.
  void Stop();

  bool IsRunning() const { return progress_ != nullptr; }

 private:
  void Spawn(std::function<void(SoundProgress&)> run);
  void End(const std::shared_ptr<SoundProgress>& progress, const std::string& failure);
  void EndIfPaused();

  QTimer watch_;  // runs during the work
  SoundWork work_ = {};
  std::shared_ptr<SoundProgress> progress_;  // of the work that goes on
  Mailbox mailbox_;
};

}  // namespace repvolta
