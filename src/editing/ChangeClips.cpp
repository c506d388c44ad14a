#include "editing/ChangeClips.h"

#include "update/RestoreAtStart.h"

namespace repvolta {

void ChangeClips(const EditedProgram& program, const ClipChange& change,
                 const ReportOfClips& report) {
  MakeProgramDirectoryCurrent(program.state);
  try {
    PutClips(program.state.ProgramDirectory, change, report);
  } catch (const RestoreUnfinished&) {
    program.RememberPendingRestore(true);
    throw;
  }
}

}  // namespace repvolta
