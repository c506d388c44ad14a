#pragma once

#include <functional>
#include <string>
#include <vector>

#include "backup/PathExchange.h"

namespace repvolta {

/// What a restore would do, in words.
struct RestoreView {
  std::vector<std::string> lines;
  bool changesNothing = false;
};

/// What the person is asked before a backup is restored.
struct RestoreQuestion {
  std::string heading;                  // which backup it is
  std::vector<PathExchange> exchanges;  // proposed; empty when all folders are here

  /// What the restore would do with these exchanges; can take a moment. Throws FileError.
  std::function<RestoreView(const std::vector<PathExchange>& exchanges)> plan;
};

}  // namespace repvolta
