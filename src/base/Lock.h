#pragma once

#include "base/Descriptor.h"

namespace repvolta {

/// Locks an open file or folder against other processes until it is closed; never waits. Returns 0,
/// EWOULDBLOCK when another process holds the lock, or another errno value on file systems without
/// locks.
int TryLock(const Descriptor& descriptor);

}  // namespace repvolta
