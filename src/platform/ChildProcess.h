#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace repvolta {

/// Where a program that is given by its name alone is looked for. The current directory may be any
/// folder of the user, so a program there is started only on request.
enum class ProgramPlace { kPath, kCurrentDirectoryThenPath };

/// A program to start in the current directory, without a shell.
struct ChildCommand {
  /// A path; or a name without a folder, looked for in `place`.
  std::string program;
  std::vector<std::string> arguments;
  /// The file that it reads as standard input; empty: its input is closed.
  std::string inputFile = {};
  /// It is killed when it runs longer; nothing means no limit.
  std::optional<std::chrono::milliseconds> limit = std::nullopt;
  ProgramPlace place = ProgramPlace::kPath;
};

enum class ChildEnd { kNotStarted, kExited, kCrashed, kKilledAtLimit };

struct ChildResult {
  ChildEnd end = ChildEnd::kNotStarted;
  int exitCode = 0;    // when kExited
  std::string output;  // the beginning of its standard output, at most kChildOutputLimit bytes
};

inline constexpr std::size_t kChildOutputLimit = std::size_t{1024} * 1024;

/// Runs child programs one at a time and waits for each one's end.
class ChildProcesses {
 public:
  virtual ~ChildProcesses() = default;

  /// Returns when the program has ended, in whatever way. Output beyond the limit is read and
  /// dropped, and so is all standard error. A failure of the program is in the result, never
  /// thrown.
  virtual ChildResult Run(const ChildCommand& command) = 0;
};

}  // namespace repvolta
