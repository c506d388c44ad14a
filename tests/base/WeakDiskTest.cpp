#include <cerrno>
#include <filesystem>
#include <gtest/gtest.h>

#include "base/File.h"
#include "base/FileError.h"
#include "base/WholeFile.h"

#include "support/TemporaryFolder.h"
#include "support/WeakDisk.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

/// What a disk of a player cannot do.
class AWeakDisk : public testing::Test {
 protected:
  TemporaryFolder folder;
};

TEST_F(AWeakDisk, LosesNothingWhereItCannotFlush) {
  for (const int error : {ENOSYS, EINVAL, ENOTSUP}) {
    const WeakDisk disk({.flush = error});
    WriteWholeFile("settings.dat", AsBytes("new"));
    EXPECT_EQ(GetTextFile("settings.dat"), "new");
    EXPECT_NO_THROW(FlushFolder("."));
  }
}

TEST_F(AWeakDisk, IsAFailingOneWhereTheFlushFails) {
  for (const int error : {EIO, ENOSPC, EDQUOT, EROFS}) {
    const WeakDisk disk({.flush = error});
    EXPECT_THROW(WriteWholeFile("settings.dat", AsBytes("new")), FileError);
    EXPECT_THROW(FlushFolder("."), FileError);
  }
}

TEST_F(AWeakDisk, LosesNothingWhereItHasNoPermissions) {
  for (const int error : {EPERM, ENOSYS, ENOTSUP}) {
    const WeakDisk disk({.permissions = error});
    WriteWholeFile("settings.dat", AsBytes("new"));
    EXPECT_EQ(GetTextFile("settings.dat"), "new");
  }
}

TEST_F(AWeakDisk, IsAFailingOneWhereThePermissionsFail) {
  const WeakDisk disk({.permissions = EIO});
  EXPECT_THROW(WriteWholeFile("settings.dat", AsBytes("new")), FileError);
}

TEST_F(AWeakDisk, ShowsAFileToNobodyWhoWasNotToReadIt) {
  PutFile("settings.dat", "old");
  fs::permissions("settings.dat", fs::perms::none);
  const WeakDisk disk({.permissions = EPERM});
  EXPECT_THROW(WriteWholeFile("settings.dat", AsBytes("new")), FileError);
  EXPECT_EQ(fs::status("settings.dat").permissions(), fs::perms::none);
}

}  // namespace
}  // namespace repvolta
