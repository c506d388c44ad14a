#include <cerrno>
#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "base/FileError.h"
#include "base/ProgramFiles.h"
#include "update/UpdateLock.h"

#include "support/TemporaryFolder.h"
#include "support/WeakLocks.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

TEST(UpdateLock, KeepsASecondUpdateOut) {
  TemporaryFolder folder;
  const UpdateLock lock(folder.Path());
  EXPECT_THROW(UpdateLock(folder.Path()), UpdateRunning);
}

TEST(UpdateLock, KeepsASecondUpdateOutWhereTheDiskHasNoLocks) {
  TemporaryFolder folder;
  const WeakLocks none(ENOLCK);
  {
    const UpdateLock lock(folder.Path());
    EXPECT_THROW(UpdateLock(folder.Path()), UpdateRunning);
  }
  EXPECT_NO_THROW(UpdateLock(folder.Path()));
}

TEST(UpdateLock, NamesTheProgramDirectory) {
  TemporaryFolder folder;
  const UpdateLock lock(folder.Path());
  try {
    const UpdateLock second(folder.Path());
    FAIL() << "locked twice";
  } catch (const UpdateRunning& running) {
    EXPECT_EQ(running.what(), "Another update of " + folder.Path() + " is running");
  }
}

TEST(UpdateLock, IsFreeAfterItsEnd) {
  TemporaryFolder folder;
  {
    const UpdateLock lock(folder.Path());
  }
  EXPECT_NO_THROW(UpdateLock(folder.Path()));
}

TEST(UpdateLock, EndsWithItsProcess) {
  TemporaryFolder folder;
  const pid_t child = fork();
  if (child == 0) {
    const UpdateLock lock(folder.Path());
    raise(SIGKILL);
  }
  waitpid(child, nullptr, 0);
  EXPECT_NO_THROW(UpdateLock(folder.Path()));
}

TEST(UpdateLock, IsNotTakenThroughALink) {
  TemporaryFolder folder;
  PutFile("precious", "old");
  fs::create_symlink("precious", kUpdateLockFile);
  EXPECT_THROW(UpdateLock(folder.Path()), FileError);
  EXPECT_EQ(GetTextFile("precious"), "old");
}

TEST(UpdateLock, SaysSoWhereThereIsNoDirectory) {
  TemporaryFolder folder;
  EXPECT_THROW(UpdateLock(folder.Path() + "gone/"), FileError);
}

}  // namespace
}  // namespace repvolta
