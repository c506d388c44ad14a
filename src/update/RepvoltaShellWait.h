#pragma once

#include <string_view>

#include "platform/ChildProcess.h"

namespace repvolta {

/// The state in which a child's window is shown; children here have none.
inline constexpr int kHiddenWindow = 0;

/// Starts a command line (a program and its arguments, parted by blanks) in the current directory,
/// where the program is looked for before the PATH, and waits for its end, however long. Neither
/// the start's success nor the exit code is looked at (quirk 49).
void ShellWait(ChildProcesses& processes, std::string_view commandLine,
               int windowState = kHiddenWindow);

}  // namespace repvolta
