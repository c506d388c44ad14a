#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "app/ProgressLog.h"

namespace repvolta {

/// Keeps lines for later.
class KeptLines : public ProgressLog {
 public:
  explicit KeptLines(std::vector<std::string>& lines) : lines_(lines) {}
  void AddLineToUpdateList(std::string_view line) override { lines_.emplace_back(line); }

 private:
  std::vector<std::string>& lines_;
};

}  // namespace repvolta
