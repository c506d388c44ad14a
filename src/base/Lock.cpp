#include "base/Lock.h"

#include <sys/file.h>

namespace repvolta {

int TryLock(const Descriptor& descriptor) {
  const auto lock = [&] { return flock(descriptor.Number(), LOCK_EX | LOCK_NB); };
  return Uninterrupted(lock) == 0 ? 0 : errno;
}

}  // namespace repvolta
