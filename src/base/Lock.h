#pragma once

#include "base/Descriptor.h"

namespace repvolta {

/// Locks an open file or folder against other processes until it is closed; never waits. Returns 0,
/// EWOULDBLOCK when another process holds the lock, or another errno value on file systems without
/// locks.
int TryLock(const Descriptor& descriptor);

/// A lock that also holds where the file system has none: then it keeps out the other processes of
/// this computer.
class ComputerLock {
 public:
  /// Locks what `descriptor` has open, until both are closed; never waits. Returns 0, EWOULDBLOCK
  /// when another process holds the lock, or the errno value of what cannot be locked at all.
  int Try(const Descriptor& descriptor);

 private:
  Descriptor standIn_;
};

}  // namespace repvolta
