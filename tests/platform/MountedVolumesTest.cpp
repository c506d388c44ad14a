#include <gtest/gtest.h>

#include "platform/MountedVolumes.h"

#include "support/DiskTree.h"

namespace repvolta {
namespace {

std::vector<std::string> Roots(const std::vector<Volume>& volumes) {
  std::vector<std::string> roots;
  for (const Volume& volume : volumes) roots.push_back(volume.root);
  return roots;
}

using Names = std::vector<std::string>;

TEST(PersonalVolumes, BeginWithTheRootAndGoOnByName) {
  EXPECT_EQ(Roots(PersonalVolumes({{"/media/b", "vfat", "/dev/sdb1", 8, 17},
                                   {"/media/a", "fuse.jmtpfs", "jmtpfs", 0, 60},
                                   {"/", "ext4", "/dev/vda", 254, 0}})),
            (Names{"/", "/media/a", "/media/b"}));
}

TEST(PersonalVolumes, HaveTheRootEvenWithoutATable) {
  EXPECT_EQ(Roots(PersonalVolumes({})), (Names{"/"}));
}

TEST(PersonalVolumes, LeaveOutTheMachinesOwn) {
  EXPECT_EQ(Roots(PersonalVolumes({{"/proc", "proc", "proc", 0, 21},
                                   {"/run/lock", "tmpfs", "tmpfs", 0, 22},
                                   {"/snap/core/1", "squashfs", "/dev/loop0", 7, 0}})),
            (Names{"/"}));
}

TEST(PersonalVolumes, CountAsWhatIsMountedLastAtTheirPlace) {
  EXPECT_EQ(Roots(PersonalVolumes({{"/mnt/a", "autofs", "systemd", 0, 60},
                                   {"/mnt/a", "nfs4", "nas:/a", 0, 61},
                                   {"/mnt/b", "vfat", "/dev/sdb1", 8, 17},
                                   {"/mnt/b", "tmpfs", "tmpfs", 0, 62}})),
            (Names{"/", "/mnt/a"}));
}

TEST(PersonalVolumes, HaveTheLabelsOfRemovableDisks) {
  DiskTree tree;
  tree.AddPartition("pci/usb1/sdb/sdb1", "8:17");
  tree.AddPartition("pci/ata1/sda/sda2", "8:2");
  tree.AddLabel("WALKMAN", "sdb1");
  tree.AddLabel("Data", "sda2");
  const std::vector<Volume> expected = {
      {.root = "/"},
      {.root = "/home"},
      {.root = "/media/me/w", .label = "WALKMAN", .kind = Volume::Kind::kRemovable}};
  EXPECT_EQ(PersonalVolumes(
                {{"/media/me/w", "vfat", "/dev/sdb1", 8, 17}, {"/home", "ext4", "/dev/sda2", 8, 2}},
                tree.Files()),
            expected);
}

TEST(PersonalVolumes, KeepTheRootWhatItIsWhenTheComputerStartedFromAStick) {
  DiskTree tree;
  tree.AddPartition("pci/usb1/sdb/sdb1", "8:17");
  EXPECT_EQ(PersonalVolumes({{"/", "ext4", "/dev/sdb1", 8, 17}}, tree.Files()),
            (std::vector<Volume>{{.root = "/"}}));
}

class MountedVolumesTest : public testing::Test {
 protected:
  DiskTree tree;
};

TEST_F(MountedVolumesTest, AreFoldersThatAnswer) {
  std::filesystem::create_directory("folder");
  PutFile("file", "");
  std::string table;
  for (const char* name : {"folder", "file", "gone"}) {
    table += "40 27 8:17 / " + tree.Path() + name + " rw - vfat /dev/sdb1 rw\n";
  }
  tree.SetMounts(table);
  EXPECT_EQ(Roots(MountedVolumes(tree.Files()).Now()), (Names{"/", tree.Path() + "folder"}));
}

TEST_F(MountedVolumesTest, KnowTheirRoom) {
  std::filesystem::create_directory("folder");
  tree.SetMounts("40 27 8:17 / " + tree.Path() + "folder rw - vfat /dev/sdb1 rw\n");
  EXPECT_TRUE(MountedVolumes(tree.Files()).Now().at(1).freeBytes);
}

TEST_F(MountedVolumesTest, AreTheRootWhereTheSystemHasNoTable) {
  EXPECT_EQ(Roots(MountedVolumes(tree.Files()).Now()), (Names{"/"}));
}

TEST(MountedVolumes, OfThisComputerBeginWithTheRoot) {
  EXPECT_EQ(MountedVolumes().Now().at(0), (Volume{.root = "/"}));
}

}  // namespace
}  // namespace repvolta
