#pragma once

#include <csignal>

#include "support/ResourceLimit.h"

namespace repvolta {

/// While it lives no file can grow beyond `bytes`, as on a full disk.
class FullDisk : public ResourceLimit {
 public:
  explicit FullDisk(rlim_t bytes) : ResourceLimit(RLIMIT_FSIZE, bytes) {
    std::signal(SIGXFSZ, SIG_IGN);
  }
};

}  // namespace repvolta
