#include <cerrno>
#include <fcntl.h>
#include <gtest/gtest.h>

#include "base/Lock.h"

#include "support/TemporaryFolder.h"
#include "support/WeakLocks.h"

namespace repvolta {
namespace {

TEST(TryLock, KeepsOthersOutUntilTheFileIsClosed) {
  TemporaryFolder folder;
  PutFile("file", "");
  Descriptor first = OpenDescriptor("file", O_RDONLY);
  const Descriptor second = OpenDescriptor("file", O_RDONLY);
  EXPECT_EQ(TryLock(first), 0);
  EXPECT_EQ(TryLock(second), EWOULDBLOCK);
  first.Close();
  EXPECT_EQ(TryLock(second), 0);
}

TEST(TryLock, LocksAFolderToo) {
  TemporaryFolder folder;
  const Descriptor first = OpenDescriptor(".", O_RDONLY);
  EXPECT_EQ(TryLock(first), 0);
  EXPECT_EQ(TryLock(OpenDescriptor(".", O_RDONLY)), EWOULDBLOCK);
}

TEST(TryLock, GivesTheErrorOfWhatIsNotOpen) { EXPECT_EQ(TryLock(Descriptor()), EBADF); }

TEST(ComputerLock, KeepsOthersOutWhereTheDiskHasNoLocks) {
  TemporaryFolder folder;
  PutFile("file", "");
  const Descriptor opened = OpenDescriptor("file", O_RDONLY);
  for (const int error : {ENOLCK, ENOTSUP, ENOSYS, EINVAL, EIO, EBADF}) {
    const WeakLocks none(error);
    ComputerLock second;
    {
      ComputerLock first;
      EXPECT_EQ(first.Try(opened), 0);
      EXPECT_EQ(second.Try(OpenDescriptor("./file", O_RDONLY)), EWOULDBLOCK);
      EXPECT_EQ(ComputerLock().Try(OpenDescriptor(".", O_RDONLY)), 0);
    }
    EXPECT_EQ(second.Try(opened), 0);
  }
}

TEST(ComputerLock, IsThatOfTheDiskWhereItHasLocks) {
  TemporaryFolder folder;
  const Descriptor first = OpenDescriptor(".", O_RDONLY);
  const Descriptor second = OpenDescriptor(".", O_RDONLY);
  EXPECT_EQ(ComputerLock().Try(first), 0);
  EXPECT_EQ(TryLock(second), EWOULDBLOCK);
}

TEST(ComputerLock, GivesTheErrorOfWhatIsNotOpen) {
  EXPECT_EQ(ComputerLock().Try(Descriptor()), EBADF);
}

}  // namespace
}  // namespace repvolta
