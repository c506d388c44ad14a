#pragma once

#include "app/ProgressLog.h"
#include "update/UpdateHost.h"

namespace repvolta::bench {

/// Drops the log lines, because the window or terminal that shows them is not measured here.
class NobodyWatching : public ProgressLog, public UpdateHost {
 public:
  void AddLineToUpdateList(std::string_view /*line*/) override {}
  bool KeepWaiting() override { return false; }
  bool StopRequested() override { return false; }
};

}  // namespace repvolta::bench
