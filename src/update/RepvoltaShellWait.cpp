#include "update/RepvoltaShellWait.h"

#include <sstream>
#include <string>

namespace repvolta {

void ShellWait(ChildProcesses& processes, std::string_view commandLine, int /*windowState*/) {
  std::istringstream words{std::string(commandLine)};
  ChildCommand command;
  words >> command.program;
  command.place = ProgramPlace::kCurrentDirectoryThenPath;
  for (std::string word; words >> word;) command.arguments.push_back(word);
  processes.Run(command);
}

}  // namespace repvolta
