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

/// The lines of a text.
std::vector<std::string> Lines(const std::string& text);

}  // namespace repvolta
