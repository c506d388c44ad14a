#pragma once

#include <exception>
#include <optional>
#include <string>

#include "app/ProgressLog.h"
#include "update/UpdateHost.h"

namespace repvolta {

/// The person ended the program while an update ran. No std::exception, so that no step takes it
/// for a failure of its own.
struct UpdateStopped {};

/// Runs an update step by step: a step that fails becomes one line of the progress log and the
/// update goes on with the next.
class Steps {
 public:
  Steps(ProgressLog& log, UpdateHost& host) : log_(log), host_(host) {}

  /// Throws UpdateStopped when the program is to end.
  void CheckStop() const {
    if (host_.StopRequested()) throw UpdateStopped();
  }

  /// Runs one step, unless the program is to end: then throws UpdateStopped. Returns why it failed.
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
