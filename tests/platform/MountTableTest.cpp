#include <gtest/gtest.h>

#include "platform/MountTable.h"

#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

using Mounts = std::vector<Mount>;

TEST(MountTable, HoldsPlaceTypeSourceAndDeviceOfEachMount) {
  EXPECT_EQ(MountsIn("27 1 254:0 / / rw,relatime - ext4 /dev/vda rw,discard\n"
                     "40 27 8:17 / /media/me/WALKMAN rw shared:9 master:1 - vfat /dev/sdb1 rw\n"),
            (Mounts{{"/", "ext4", "/dev/vda", 254, 0},
                    {"/media/me/WALKMAN", "vfat", "/dev/sdb1", 8, 17}}));
}

TEST(MountTable, NeedsNoLineEndAtItsEnd) {
  EXPECT_EQ(MountsIn("27 1 254:0 / / rw - ext4 /dev/vda rw").size(), 1);
}

TEST(MountTable, GivesNamesWithBlanksAndBackslashesAsTheyAreOnDisk) {
  EXPECT_EQ(MountsIn(R"(40 27 8:17 / /media/My\040Player\134x rw - vfat /dev/a\040b rw)"),
            (Mounts{{"/media/My Player\\x", "vfat", "/dev/a b", 8, 17}}));
}

TEST(MountTable, LeavesOutWhatIsNoMount) {
  for (const char* line : {"", "\n", "nonsense", "1 2 3:4 / relative rw - ext4 /dev/vda rw",
                           "1 2 3:4 / /without/separator rw ext4 /dev/vda rw", "1 2 3:4"}) {
    EXPECT_EQ(MountsIn(line), Mounts()) << line;
  }
}

TEST(MountTable, TakesABackslashAtTheEndAsItIs) {
  EXPECT_EQ(MountsIn("1 2 3:4 / /a\\04 rw - ext4 /dev/vda rw").at(0).point, "/a\\04");
}

TEST(MountTable, IsReadFromTheSystemsFile) {
  const TemporaryFolder folder;
  PutFile("mountinfo", "27 1 254:0 / / rw - ext4 /dev/vda rw\n");
  EXPECT_EQ(ReadMounts({.mounts = "mountinfo"}), (Mounts{{"/", "ext4", "/dev/vda", 254, 0}}));
}

TEST(MountTable, IsEmptyWhereTheSystemHasNone) {
  const TemporaryFolder folder;
  EXPECT_EQ(ReadMounts({.mounts = "missing"}), Mounts());
}

TEST(MountTable, OfThisComputerHasTheRoot) {
  const auto root = MountOf(ReadMounts(), "/");
  ASSERT_TRUE(root);
  EXPECT_EQ(root->point, "/");
}

const Mounts kMounts = {{"/", "ext4", "/dev/vda", 254, 0},
                        {"/media/me/A", "vfat", "/dev/sdb1", 8, 17},
                        {"/media/me/A/inner", "vfat", "/dev/sdc1", 8, 33},
                        {"/media/me/B", "autofs", "systemd", 0, 50},
                        {"/media/me/B", "vfat", "/dev/sdd1", 8, 49}};

TEST(MountOf, IsTheInnermostThatHoldsThePath) {
  EXPECT_EQ(MountOf(kMounts, "/media/me/A/Monday")->source, "/dev/sdb1");
  EXPECT_EQ(MountOf(kMounts, "/media/me/A")->source, "/dev/sdb1");
  EXPECT_EQ(MountOf(kMounts, "/media/me/A/inner/x")->source, "/dev/sdc1");
  EXPECT_EQ(MountOf(kMounts, "/media/me")->source, "/dev/vda");
}

TEST(MountOf, IsNotTakenInByANameThatOnlyBeginsLikeAMount) {
  EXPECT_EQ(MountOf(kMounts, "/media/me/Alpha")->source, "/dev/vda");
}

TEST(MountOf, IsTheLastAtItsPlace) {
  EXPECT_EQ(MountOf(kMounts, "/media/me/B/x")->source, "/dev/sdd1");
}

TEST(MountOf, IsNothingWithoutATable) { EXPECT_EQ(MountOf({}, "/"), std::nullopt); }

}  // namespace
}  // namespace repvolta
