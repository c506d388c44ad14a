#pragma once

#include <stdexcept>
#include <string>

namespace repvolta {

/// A backup is half restored; what() says why its last files could not be put in place.
class RestoreUnfinished : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Finishes a restore that was interrupted and removes one that was not decided, under the lock of
/// the program directory. A program that starts calls it before it reads anything there. Throws
/// RestoreUnfinished, or UpdateRunning when another program is at it, and then nothing may be read.
void FinishInterruptedRestore(const std::string& programDirectory);

}  // namespace repvolta
