#pragma once

#include "base/Descriptor.h"

namespace repvolta {

/// Locks an open file or folder against other processes, without waiting, as long as it is open.
/// Returns 0, or an errno value: EWOULDBLOCK when another process has it locked; others from file
/// systems without locks.
int TryLock(const Descriptor& descriptor);

}  // namespace repvolta
