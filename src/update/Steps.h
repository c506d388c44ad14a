#pragma once

#include <exception>
#include <optional>
#include <string>

#include "app/ProgressLog.h"
#include "update/UpdateHost.h"

namespace repvolta {

/// Thrown when the person stops an update or ends the program during one. Not derived from
/// std::exception, so that no step catches it as a failure of its own.
struct UpdateStopped {};

/// Runs an update step by step: a failing step is logged as one line, and the update continues.
class Steps {
 public:
  Steps(ProgressLog& log, UpdateHost& host) : log_(log), host_(host) {}

  /// Throws UpdateStopped when the person has stopped the update or ended the program.
  void CheckStop() const {
    if (host_.StopRequested()) throw UpdateStopped();
  }

  /// Runs one step after CheckStop(). Returns why it failed; nothing when it succeeded.
  template <class Statement>
  std::optional<std::string> Try(Statement&& statement) {
    CheckStop();
    try {
      statement();
    } catch (const std::exception& error) {
      return error.what();
    }
    return std::nullopt;
  }

  /// Like Try, and logs the failure.
  template <class Statement>
  void Run(Statement&& statement) {
    LogFailure(Try(statement));
  }

  void LogFailure(const std::optional<std::string>& failure) {
    if (failure) Log("ERROR: " + *failure);
  }

  void Log(std::string_view line) { log_.AddLineToUpdateList(line); }

 private:
  ProgressLog& log_;
  UpdateHost& host_;
};

}  // namespace repvolta
