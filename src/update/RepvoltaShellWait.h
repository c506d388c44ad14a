#pragma once

#include <string_view>

#include "platform/ChildProcess.h"

namespace repvolta {

/// The state of a child's window; here no child has one.
inline constexpr int kHiddenWindow = 0;

/// Runs a command line (a program and its arguments, separated by blanks) in the current directory
/// and waits for its end without a limit. The program is looked up there first, then on the PATH. A
/// failed start and the exit code are ignored (quirk 49).
void ShellWait(ChildProcesses& processes, std::string_view commandLine,
               int windowState = kHiddenWindow);

}  // namespace repvolta
