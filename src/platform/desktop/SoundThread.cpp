#include "platform/desktop/SoundThread.h"

#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

#include "platform/desktop/PulseDevices.h"

namespace repvolta {

namespace {

using std::chrono::milliseconds;
using Steady = std::chrono::steady_clock;

constexpr milliseconds kWatchInterval{200};
constexpr milliseconds kLastMoment{1000};

}  // namespace

struct SoundProgress::State {
  mutable std::mutex mutex;
  std::condition_variable changed;
  bool isStopped = false;                        // by the owner
  std::optional<Steady::time_point> moved = {};  // the latest time
  int threads = 0;                               // that have not ended

  void Stop() {
    const std::lock_guard lock(mutex);
    isStopped = true;
    changed.notify_all();
  }

  bool IsStoppedWithin(milliseconds limit) {
    std::unique_lock lock(mutex);
    return changed.wait_for(lock, limit, [this] { return isStopped; });
  }

  bool HasBegun() const {
    const std::lock_guard lock(mutex);
    return moved.has_value();
  }

  bool HasPausedFor(milliseconds limit) const {
    const std::lock_guard lock(mutex);
    return moved && Steady::now() - *moved > limit;
  }

  void AddThread() {
    const std::lock_guard lock(mutex);
    ++threads;
  }

  void EndThread() {
    const std::lock_guard lock(mutex);
    --threads;
    changed.notify_all();
  }

  void WaitForEnd(milliseconds limit) {
    std::unique_lock lock(mutex);
    changed.wait_for(lock, limit, [this] { return threads == 0; });
  }
};

SoundProgress::SoundProgress() : state_(std::make_unique<State>()) {}

SoundProgress::~SoundProgress() = default;

bool SoundProgress::IsStopped() const {
  const std::lock_guard lock(state_->mutex);
  return state_->isStopped;
}

void SoundProgress::SetMoved() {
  const std::lock_guard lock(state_->mutex);
  state_->moved = Steady::now();
}

SoundThread::SoundThread() {
  watch_.setInterval(kWatchInterval);
  QObject::connect(&watch_, &QTimer::timeout, &watch_, [this] { EndIfPaused(); });
}

SoundThread::~SoundThread() {
  const std::shared_ptr<SoundProgress> progress = progress_;
  Stop();
  if (progress) progress->state_->WaitForEnd(kLastMoment);
}

void SoundThread::Start(SoundWork work) {
  Stop();
  work_ = std::move(work);
  progress_ = std::make_shared<SoundProgress>();
  Spawn(std::move(work_.run));
  // When a device goes, the sound system goes on with another one, of which nobody thinks.
  Spawn([kind = work_.kind, device = work_.device,
         direction = work_.direction](const SoundProgress& progress) {
    PulseDevices devices(direction);
    while (!progress.state_->IsStoppedWithin(kWatchInterval)) {
      const auto there = devices.Identifiers();
      if (!there || there->contains(device.id())) continue;
      throw SoundError(DeviceIsGone(kind, device.description().toStdString()));
    }
  });
  watch_.start();
  QTimer::singleShot(work_.longestOpening, &watch_, [this, progress = progress_] {
    if (progress != progress_ || progress->state_->HasBegun()) return;
    End(progress, DeviceDoesNotWork(work_.kind, work_.device.description().toStdString()));
  });
}

/// The work ends with the first of its threads.
void SoundThread::Spawn(std::function<void(SoundProgress&)> run) {
  progress_->state_->AddThread();
  std::thread([this, progress = progress_, run = std::move(run), post = mailbox_.Poster()] {
    std::string failure;
    try {
      run(*progress);
    } catch (const SoundError& error) {
      failure = error.what();
    }
    progress->state_->EndThread();
    post([this, progress, failure] { End(progress, failure); });
  }).detach();
}

void SoundThread::Stop() {
  if (!progress_) return;
  watch_.stop();
  progress_->state_->Stop();
  progress_.reset();
  work_ = {};
}

/// Work that was stopped has no end any more.
void SoundThread::End(const std::shared_ptr<SoundProgress>& progress, const std::string& failure) {
  if (progress != progress_) return;
  const auto ended = std::exchange(work_.ended, {});
  Stop();
  ended(failure);
}

void SoundThread::EndIfPaused() {
  if (!progress_ || !progress_->state_->HasPausedFor(work_.longestPause)) return;
  End(progress_, DeviceIsGone(work_.kind, work_.device.description().toStdString()));
}

}  // namespace repvolta
