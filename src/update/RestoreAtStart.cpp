#include "update/RestoreAtStart.h"

#include "base/Folder.h"
#include "base/ProgramFiles.h"
#include "keeping/PendingRestore.h"
#include "update/UpdateLock.h"

namespace repvolta {

void FinishInterruptedRestore(const std::string& programDirectory) {
  try {
    if (!FolderExists(programDirectory + kRestoreFolder)) return;
    const UpdateLock lock(programDirectory);
    FinishRestore(programDirectory);
  } catch (const UpdateRunning&) {
    // What is not decided belongs to the program that holds the lock.
    if (IsRestorePending(programDirectory)) throw;
  } catch (const FileError& error) {
    if (!IsRestorePending(programDirectory)) return;
    throw RestoreUnfinished(programDirectory, error.what());
  }
}

}  // namespace repvolta
