#pragma once

#include <functional>
#include <string>
#include <vector>

namespace repvolta {

struct ProgramRun {
  int status = -1;  // exit status; -1 when the program did not exit by itself
  std::string output;
  std::string errors;
};

/// "NAME=value" settings on top of the environment.
using Environment = std::vector<std::string>;

/// Runs a program in the current directory and waits for its end, a minute at most. `started` gets
/// its process identifier.
ProgramRun RunProgram(const std::string& program, const std::vector<std::string>& arguments = {},
                      const Environment& environment = {},
                      const std::function<void(long)>& started = {});

/// The same in a new namespace, after the shell line `mounts` has mounted something there. Fails
/// the test, with the reason, when the program does not start.
ProgramRun RunWithMounts(const std::string& mounts, const std::vector<std::string>& commandLine);

/// The same with a tmpfs with these mount options mounted over a folder; the program may also
/// unmount it.
ProgramRun RunOnDevice(const std::string& folder, const std::string& options,
                       const std::vector<std::string>& commandLine);

/// The lines of a text.
std::vector<std::string> Lines(const std::string& text);

/// "" when there is none.
std::string LastLine(const std::string& text);

}  // namespace repvolta
