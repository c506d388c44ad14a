#include "voices/BackgroundSongs.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

#include "platform/QtChildProcesses.h"

namespace repvolta {
namespace {

using Steady = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kLastMoment{1000};

/// Ends work that nobody waits for any more.
class NotWanted {};

}  // namespace

/// Shared with the thread.
struct BackgroundSongs::Run {
  std::atomic<bool> isStopped = false;
  std::mutex mutex;
  std::condition_variable changed;
  bool hasEnded = false;

  void SetEnded() {
    const std::lock_guard lock(mutex);
    hasEnded = true;
    changed.notify_all();
  }

  bool HasEnded() {
    const std::lock_guard lock(mutex);
    return hasEnded;
  }

  void WaitForEnd(Steady::time_point limit) {
    std::unique_lock lock(mutex);
    changed.wait_until(lock, limit, [this] { return hasEnded; });
  }
};

BackgroundSongs::~BackgroundSongs() {
  Stop();
  const Steady::time_point limit = Steady::now() + kLastMoment;
  for (const std::shared_ptr<Run>& run : threads_) run->WaitForEnd(limit);
}

void BackgroundSongs::Begin(Work work) {
  Stop();
  std::erase_if(threads_, [](const std::shared_ptr<Run>& run) { return run->HasEnded(); });
  run_ = threads_.emplace_back(std::make_shared<Run>());
  const auto go = [this, run = run_, post = mailbox_.Poster(), work = std::move(work)] {
    QtChildProcesses processes([&run] {
      if (run->isStopped) throw NotWanted();
    });
    try {
      post([this, run, then = work(processes)] { End(run, then); });
    } catch (const NotWanted&) {
    }
  };
  std::thread([go, run = run_] {
    go();
    run->SetEnded();
  }).detach();
}

void BackgroundSongs::Stop() {
  if (run_) run_->isStopped = true;
  run_.reset();
}

void BackgroundSongs::End(const std::shared_ptr<Run>& run, const std::function<void()>& then) {
  if (run != run_) return;
  run_.reset();
  then();
}

}  // namespace repvolta
