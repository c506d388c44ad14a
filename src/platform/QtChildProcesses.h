#pragma once

#include <functional>
#include <utility>

#include "platform/ChildProcess.h"

namespace repvolta {

/// Runs real programs. Each one leads its own process group, so that a kill at the limit also ends
/// the processes that it started; each is killed when this process dies. Needs a QCoreApplication.
class QtChildProcesses : public ChildProcesses {
 public:
  /// `whileWaiting` is called about every 50 ms while a program runs, to keep a window responsive.
  explicit QtChildProcesses(std::function<void()> whileWaiting = {})
      : whileWaiting_(std::move(whileWaiting)) {}

  ChildResult Run(const ChildCommand& command) override;

 private:
  std::function<void()> whileWaiting_;
};

}  // namespace repvolta
