#include "app/ProgramState.h"

#include <cerrno>
#include <unistd.h>

#include "base/FileError.h"

namespace repvolta {

void MakeProgramDirectoryCurrent(const ProgramState& state) {
  if (state.RestoreIsPending) {
    throw FileError(state.ProgramDirectory, "is not used",
                    "A restored backup or a changed voice is half in place in it");
  }
  if (chdir(state.ProgramDirectory.c_str()) != 0) {
    throw FileError(state.ProgramDirectory, "could not be opened", errno);
  }
}

}  // namespace repvolta
