#include <cerrno>
#include <fcntl.h>
#include <gtest/gtest.h>

#include "base/Lock.h"

#include "support/TemporaryFolder.h"

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

}  // namespace
}  // namespace repvolta
