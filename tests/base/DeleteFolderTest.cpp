#include <cerrno>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <string_view>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "base/DeleteFolder.h"
#include "base/Folder.h"

#include "support/FailureOf.h"
#include "support/OrdinaryRights.h"
#include "support/TemporaryFolder.h"

namespace {

/// Changes what the system says of a folder with the name "mounted".
std::function<void(struct statx&)>& MountedLooks() {
  static std::function<void(struct statx&)> change;
  return change;
}

}  // namespace

/// Takes the place of the system's, in this program: not everybody who tests may mount.
extern "C" int statx(int folder, const char* path, int flags, unsigned mask,
                     struct statx* status) noexcept {
  const long result = syscall(SYS_statx, folder, path, flags, mask, status);
  if (result == 0 && std::string_view(path) == "mounted" && MountedLooks()) MountedLooks()(*status);
  return static_cast<int>(result);
}

namespace {

/// How many deletions a signal still interrupts.
int interruptions = 0;

}  // namespace

extern "C" int unlinkat(int folder, const char* path, int flags) noexcept {
  if (interruptions > 0) {
    --interruptions;
    errno = EINTR;
    return -1;
  }
  return static_cast<int>(syscall(SYS_unlinkat, folder, path, flags));
}

namespace repvolta {
namespace {

namespace fs = std::filesystem;

TEST(DeleteFolder, DeletesAllThatIsInIt) {
  TemporaryFolder folder;
  PutFile("Monday/deep/in/it", "x");
  PutFile("Monday/.hidden", "x");
  DeleteFolder("Monday/");
  EXPECT_FALSE(IsTaken("Monday"));
}

TEST(DeleteFolder, GoesOnAfterASignal) {
  TemporaryFolder folder;
  PutFile("Monday/song", "x");
  interruptions = 3;
  DeleteFolder("Monday");
  EXPECT_FALSE(IsTaken("Monday"));
  EXPECT_EQ(interruptions, 0);
}

TEST(DeleteFolder, MindsNoMissingOne) {
  TemporaryFolder folder;
  EXPECT_EQ(FailureOf([] { DeleteFolder("Monday"); }), "");
}

TEST(DeleteFolder, DeletesWhatIsInFoldersWithoutRights) {
  TemporaryFolder folder;
  PutFile("Monday/closed/song", "x");
  fs::permissions("Monday/closed", fs::perms::none);
  fs::permissions("Monday", fs::perms::owner_read);
  const OrdinaryRights ordinary;
  DeleteFolder("Monday");
  EXPECT_FALSE(IsTaken("Monday"));
}

TEST(DeleteFolder, DeletesLinksAndNotWhereTheyLead) {
  TemporaryFolder folder;
  PutFile("precious/diary.txt", "mine");
  fs::permissions("precious", fs::perms::owner_read | fs::perms::owner_exec);
  fs::create_directory("Monday");
  fs::create_directory_symlink("../precious", "Monday/link");
  DeleteFolder("Monday");
  EXPECT_EQ(GetTextFile("precious/diary.txt"), "mine");
  EXPECT_EQ(fs::status("precious").permissions(), fs::perms::owner_read | fs::perms::owner_exec);
}

TEST(DeleteFolder, RefusesALinkAndAFile) {
  TemporaryFolder folder;
  PutFile("precious/diary.txt", "mine");
  fs::create_directory_symlink("precious", "Monday");
  EXPECT_EQ(FailureOf([] { DeleteFolder("Monday/"); }),
            "Monday could not be deleted: Not a directory");
  EXPECT_EQ(FailureOf([] { DeleteFolder("precious/diary.txt"); }),
            "precious/diary.txt could not be deleted: Not a directory");
  EXPECT_EQ(GetTextFile("Monday/diary.txt"), "mine");
}

/// What is mounted at "Monday/mounted", as the test sees it.
class Mounted : public testing::Test {
 protected:
  Mounted() {
    PutFile("Monday/mounted/photo", "mine");
    PutFile("Monday/a song", "x");
    PutFile("Monday/z song", "x");
    fs::permissions("Monday/mounted", fs::perms::owner_read | fs::perms::owner_exec);
  }
  ~Mounted() override { MountedLooks() = nullptr; }

  static void ExpectLeft(const std::string& path, const std::string& mounted) {
    EXPECT_EQ(FailureOf([&] { DeleteFolder(path); }),
              mounted + " could not be deleted: Another file system is mounted there");
    EXPECT_EQ(GetTextFile("Monday/mounted/photo"), "mine");
    EXPECT_EQ(fs::status("Monday/mounted").permissions(),
              fs::perms::owner_read | fs::perms::owner_exec);
  }

  TemporaryFolder folder;
};

TEST_F(Mounted, FoldersAreTold) {
  EXPECT_FALSE(IsMountPoint(FolderHandle::Open("Monday"), "mounted"));
  MountedLooks() = [](struct statx& status) { ++status.stx_mnt_id; };
  EXPECT_TRUE(IsMountPoint(FolderHandle::Open("Monday"), "mounted"));
  EXPECT_FALSE(IsMountPoint(FolderHandle::Open("."), "Monday"));
  EXPECT_EQ(FailureOf([] { IsMountPoint(FolderHandle::Open("."), "gone"); }),
            "./gone could not be deleted: No such file or directory");
}

TEST_F(Mounted, FoldersOfOneDeviceAreLeftAlone) {
  MountedLooks() = [](struct statx& status) { ++status.stx_mnt_id; };
  ExpectLeft("Monday", "Monday/mounted");
}

TEST_F(Mounted, FoldersAreLeftAloneWhereTheSystemHasNoNumbersForThem) {
  MountedLooks() = [](struct statx& status) {
    status.stx_mask &= ~STATX_MNT_ID;
    ++status.stx_dev_minor;
  };
  ExpectLeft("Monday", "Monday/mounted");
}

TEST_F(Mounted, FolderItselfIsLeftAlone) {
  MountedLooks() = [](struct statx& status) { ++status.stx_mnt_id; };
  ExpectLeft("Monday/mounted", "Monday/mounted");
}

TEST_F(Mounted, FoldersKeepNothingElseFromBeingDeleted) {
  MountedLooks() = [](struct statx& status) { ++status.stx_mnt_id; };
  ExpectLeft("Monday", "Monday/mounted");
  EXPECT_FALSE(IsTaken("Monday/a song"));
  EXPECT_FALSE(IsTaken("Monday/z song"));
}

}  // namespace
}  // namespace repvolta
