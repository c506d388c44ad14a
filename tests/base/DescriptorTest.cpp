#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>

#include "base/Descriptor.h"

#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

bool IsOpenInTheSystem(int number) { return fcntl(number, F_GETFD) != -1; }

TEST(Descriptor, ClosesWhatItOwns) {
  TemporaryFolder folder;
  int number = -1;
  {
    const Descriptor opened = OpenDescriptor(".", O_RDONLY);
    number = opened.Number();
    EXPECT_TRUE(IsOpenInTheSystem(number));
  }
  EXPECT_FALSE(IsOpenInTheSystem(number));
}

TEST(Descriptor, ClosesWhatItOwnedWhenItTakesAnother) {
  TemporaryFolder folder;
  Descriptor first = OpenDescriptor(".", O_RDONLY);
  Descriptor second = OpenDescriptor(".", O_RDONLY);
  const int before = first.Number();
  const int taken = second.Number();
  first = std::move(second);
  EXPECT_FALSE(IsOpenInTheSystem(before));
  EXPECT_EQ(first.Number(), taken);
  EXPECT_TRUE(IsOpenInTheSystem(taken));
}

TEST(Descriptor, LeavesOpenWhatItGivesUp) {
  TemporaryFolder folder;
  Descriptor owner = OpenDescriptor(".", O_RDONLY);
  const Descriptor next(owner.Number());
  owner.Release();
  EXPECT_FALSE(owner.IsOpen());
  EXPECT_TRUE(IsOpenInTheSystem(next.Number()));
}

TEST(OpenDescriptor, IsNotInheritedByChildPrograms) {
  TemporaryFolder folder;
  EXPECT_EQ(fcntl(OpenDescriptor(".", O_RDONLY).Number(), F_GETFD), FD_CLOEXEC);
}

TEST(OpenDescriptor, LeavesTheReasonWhereItFails) {
  TemporaryFolder folder;
  EXPECT_FALSE(OpenDescriptor("gone", O_RDONLY).IsOpen());
  EXPECT_EQ(errno, ENOENT);
}

TEST(Uninterrupted, RepeatsOnlyWhatASignalInterrupted) {
  int calls = 0;
  const auto interruptedTwice = [&] {
    errno = ++calls <= 2 ? EINTR : EIO;
    return -1;
  };
  EXPECT_EQ(Uninterrupted(interruptedTwice), -1);
  EXPECT_EQ(calls, 3);
}

TEST(IsStillAt, KnowsTheFileFromALinkToItAndFromItsSuccessor) {
  TemporaryFolder folder;
  PutFile("file", "");
  const Descriptor opened = OpenDescriptor("file", O_RDONLY);
  fs::create_symlink("file", "link");
  EXPECT_TRUE(IsStillAt(opened, "file"));
  EXPECT_FALSE(IsStillAt(opened, "link"));
  fs::remove("file");
  EXPECT_FALSE(IsStillAt(opened, "file"));
  PutFile("file", "");
  EXPECT_FALSE(IsStillAt(opened, "file"));
}

}  // namespace
}  // namespace repvolta
