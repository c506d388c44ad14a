#pragma once

#include <string>

#include "base/FileError.h"

namespace repvolta {

/// A backup is half restored, or a voice half changed; what() says why its last files could not be
/// put in place.
class RestoreUnfinished : public FileError {
 public:
  RestoreUnfinished(const std::string& programDirectory, const std::string& why)
      : FileError(programDirectory, "is half changed", why) {}
};

/// Finishes a restore that was interrupted and removes one that was not decided, under the lock of
/// the program directory. A program that starts calls it before it reads anything there. Throws
/// RestoreUnfinished, or UpdateRunning when another program is at it, and then nothing may be read.
void FinishInterruptedRestore(const std::string& programDirectory);

}  // namespace repvolta
