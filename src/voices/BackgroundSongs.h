#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "platform/ChildProcess.h"
#include "platform/Mailbox.h"

namespace repvolta {

/// Reads and decodes songs while the caller goes on, one piece of work at a time. A song may lie on
/// a disk that does not answer: then the work is abandoned. Needs a QCoreApplication.
class BackgroundSongs {
 public:
  /// Runs in a thread of its own, with processes that are killed when it is stopped, and returns
  /// what the event loop then calls. It must not refer to what may end before it.
  using Work = std::function<std::function<void()>(ChildProcesses& processes)>;

  BackgroundSongs() = default;
  /// Waits a moment for all that was begun: a thread with a process must not run while the program
  /// ends.
  ~BackgroundSongs();
  BackgroundSongs(const BackgroundSongs&) = delete;
  BackgroundSongs& operator=(const BackgroundSongs&) = delete;

  /// Stops what is being done and begins the work.
  void Begin(Work work);

  /// What the work has returned is not called any more.
  void Stop();

 private:
  struct Run;

  void End(const std::shared_ptr<Run>& run, const std::function<void()>& then);

  std::shared_ptr<Run> run_;                   // none: nothing is done
  std::vector<std::shared_ptr<Run>> threads_;  // those that may not have ended
  Mailbox mailbox_;
};

}  // namespace repvolta
