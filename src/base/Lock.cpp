#include "base/Lock.h"

#include <cerrno>
#include <sys/file.h>

namespace repvolta {

int TryLock(int descriptor) {
  while (flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
    if (errno != EINTR) return errno;
  }
  return 0;
}

}  // namespace repvolta
