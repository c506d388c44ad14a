#include <gtest/gtest.h>

#include "platform/DiskOfMount.h"

#include "support/DiskTree.h"

namespace repvolta {
namespace {

class DiskOfMount : public testing::Test {
 protected:
  bool IsRemovable(const Mount& mount) const { return IsOnRemovableDisk(mount, tree.Files()); }
  std::string Label(const Mount& mount) const { return LabelOf(mount, tree.Files()); }

  DiskTree tree;
  const Mount walkman{"/media/me/WALKMAN1", "vfat", "/dev/sdb1", 8, 17};
};

TEST_F(DiskOfMount, IsRemovableWhenTheSystemSaysSo) {
  tree.AddPartition("pci/ata2/sdb/sdb1", "8:17", "1");
  EXPECT_TRUE(IsRemovable(walkman));
}

TEST_F(DiskOfMount, IsFixedInTheComputer) {
  tree.AddPartition("pci/ata2/sdb/sdb1", "8:17", "0");
  EXPECT_FALSE(IsRemovable(walkman));
}

TEST_F(DiskOfMount, IsRemovableOnACable) {
  tree.AddPartition("pci/usb1/1-2/host6/sdb/sdb1", "8:17", "0");
  EXPECT_TRUE(IsRemovable(walkman));
}

TEST_F(DiskOfMount, IsRemovableWithoutPartitions) {
  tree.AddDisk("pci/ata2/sdb", "8:16", "1");
  EXPECT_TRUE(IsRemovable({"/media/me/WALKMAN", "vfat", "/dev/sdb", 8, 16}));
}

TEST_F(DiskOfMount, IsRemovableAsACardButNotAsSolderedMemory) {
  const Mount card{"/media/me/card", "exfat", "/dev/mmcblk0p1", 179, 1};
  tree.AddPartition("pci/mmc_host/mmc0/block/mmcblk0/mmcblk0p1", "179:1");
  PutFile("sys/devices/pci/mmc_host/mmc0/block/mmcblk0/device/type", "MMC\n");
  EXPECT_FALSE(IsRemovable(card));
  PutFile("sys/devices/pci/mmc_host/mmc0/block/mmcblk0/device/type", "SD\n");
  EXPECT_TRUE(IsRemovable(card));
}

TEST_F(DiskOfMount, IsRemovableWhenAnEncryptedOneIs) {
  const Mount opened{"/media/me/secret", "ext4", "/dev/mapper/luks-1", 253, 0};
  tree.AddPartition("pci/usb1/sdb/sdb1", "8:17");
  tree.AddDisk("virtual/block/dm-0", "253:0");
  EXPECT_FALSE(IsRemovable(opened));
  std::filesystem::create_directories("sys/devices/virtual/block/dm-0/slaves");
  std::filesystem::create_symlink(tree.Path() + "sys/devices/pci/usb1/sdb/sdb1",
                                  "sys/devices/virtual/block/dm-0/slaves/sdb1");
  EXPECT_TRUE(IsRemovable(opened));
}

TEST_F(DiskOfMount, IsFoundByItsNameWhenTheFileSystemHasANumberOfItsOwn) {
  tree.AddPartition("pci/usb1/sdb/sdb1", "8:17");
  EXPECT_TRUE(IsRemovable({"/media/me/x", "btrfs", "/dev/sdb1", 0, 44}));
}

TEST_F(DiskOfMount, IsNoneBehindANetworkOrAProgram) {
  tree.AddPartition("pci/usb1/sdb/sdb1", "8:17");
  EXPECT_FALSE(IsRemovable({"/mnt/nas", "nfs4", "nas:/sdb1", 0, 45}));
  EXPECT_FALSE(IsRemovable({"/run/user/1000/gvfs", "fuse.gvfsd-fuse", "gvfsd-fuse", 0, 46}));
}

TEST_F(DiskOfMount, HasItsLabel) {
  tree.AddPartition("pci/usb1/sdb/sdb1", "8:17");
  tree.AddLabel("OTHER", "sdb2");
  tree.AddLabel("WALKMAN", "sdb1");
  EXPECT_EQ(Label(walkman), "WALKMAN");
}

TEST_F(DiskOfMount, HasItsLabelWithBlanksAndAccents) {
  tree.AddPartition("pci/usb1/sdb/sdb1", "8:17");
  tree.AddLabel("M\\xc3\\xbcsik\\x201\\x", "sdb1");
  EXPECT_EQ(Label(walkman), "Müsik 1\\x");
}

TEST_F(DiskOfMount, IsCalledAsItsFolderWithoutALabel) {
  tree.AddPartition("pci/usb1/sdb/sdb1", "8:17");
  EXPECT_EQ(Label(walkman), "WALKMAN1");
  tree.AddLabel("OTHER", "sdb2");
  EXPECT_EQ(Label(walkman), "WALKMAN1");
}

}  // namespace
}  // namespace repvolta
