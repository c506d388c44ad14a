#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "app/ProgressLog.h"

namespace repvolta {

/// Records the lines of an update.
class RecordingLog : public ProgressLog {
 public:
  void AddLineToUpdateList(std::string_view line) override { lines.emplace_back(line); }

  std::vector<std::string> lines;
};

}  // namespace repvolta
