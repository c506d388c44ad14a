#pragma once

#include "support/ResourceLimit.h"

namespace repvolta {

/// While it lives no file can be opened, though each is there: the table of open files is full.
class NoMoreFiles : public ResourceLimit {
 public:
  NoMoreFiles() : ResourceLimit(RLIMIT_NOFILE, 0) {}
};

}  // namespace repvolta
