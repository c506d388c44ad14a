#pragma once

#include <functional>
#include <utility>

#include "platform/ChildProcess.h"

namespace repvolta {

/// The machine's own programs. Each is the leader of a process group of its own, so that a kill at
/// the limit also ends what it has started; each is killed when this process dies. Needs a
/// QCoreApplication.
class QtChildProcesses : public ChildProcesses {
 public:
  /// `whileWaiting` is called about every 50 ms while a program runs, for a window that must stay
  /// alive.
  explicit QtChildProcesses(std::function<void()> whileWaiting = {})
      : whileWaiting_(std::move(whileWaiting)) {}

  ChildResult Run(const ChildCommand& command) override;

 private:
  std::function<void()> whileWaiting_;
};

}  // namespace repvolta
