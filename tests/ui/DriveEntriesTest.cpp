#include <gtest/gtest.h>

#include "ui/DriveEntries.h"

namespace repvolta {
namespace {

using Entries = std::vector<DriveEntry>;

const Volume kWalkman{.root = "/media/me/WALKMAN",
                      .label = "WALKMAN",
                      .kind = Volume::Kind::kRemovable,
                      .freeBytes = 3'200'000'000};

Volume With(Volume volume, const std::function<void(Volume&)>& change) {
  change(volume);
  return volume;
}

std::string TextOf(const Volume& volume) { return DriveEntries({volume}).at(0).text.toStdString(); }

TEST(DriveEntries, AreThePathsOfFixedDrives) {
  EXPECT_EQ(DriveEntries({{.root = "/"}, {.root = "/home", .freeBytes = 5}}),
            (Entries{{"/", "/"}, {"/home", "/home"}}));
}

TEST(DriveEntries, AreLabelAndRoomOfRemovableDisks) {
  EXPECT_EQ(DriveEntries({kWalkman}), (Entries{{"WALKMAN (3.2 GB free)", "/media/me/WALKMAN"}}));
}

TEST(DriveEntries, CountInTheUnitsThatDisksAreSoldIn) {
  const auto withFree = [](std::uint64_t bytes) {
    return TextOf(With(kWalkman, [=](Volume& volume) { volume.freeBytes = bytes; }));
  };
  EXPECT_EQ(withFree(0), "WALKMAN (0 bytes free)");
  EXPECT_EQ(withFree(999), "WALKMAN (999 bytes free)");
  EXPECT_EQ(withFree(300'000'000), "WALKMAN (300.0 MB free)");
  EXPECT_EQ(withFree(2'000'000'000'000), "WALKMAN (2.0 TB free)");
}

TEST(DriveEntries, SayNothingOfRoomThatIsNotKnown) {
  EXPECT_EQ(TextOf(With(kWalkman, [](Volume& volume) { volume.freeBytes.reset(); })), "WALKMAN");
}

TEST(DriveEntries, AreThePathOfARemovableDiskWithoutALabel) {
  EXPECT_EQ(TextOf(With(kWalkman, [](Volume& volume) { volume.label.clear(); })),
            "/media/me/WALKMAN (3.2 GB free)");
}

TEST(DriveEntries, AreOneLineWhateverTheLabelHolds) {
  EXPECT_EQ(TextOf(With(kWalkman, [](Volume& volume) { volume.label = "A\nB & <b>"; })),
            "A?B & <b> (3.2 GB free)");
}

TEST(DriveEntries, CannotBeChosenWhileTheDriveDoesNotAnswer) {
  const auto silent = [](Volume& volume) { volume.state = Volume::State::kSilent; };
  EXPECT_EQ(DriveEntries({With({.root = "/mnt/nas"}, silent), With(kWalkman, silent)}),
            (Entries{{"/mnt/nas (does not answer)", "/mnt/nas", false},
                     {"WALKMAN (does not answer)", "/media/me/WALKMAN", false}}));
}

TEST(DriveEntries, HaveThePathToTellTwinsApart) {
  const auto twin = With(kWalkman, [](Volume& volume) { volume.root += "1"; });
  const auto other = With(kWalkman, [](Volume& volume) {
    volume.root = "/media/me/X";
    volume.label = "X";
  });
  EXPECT_EQ(DriveEntries({kWalkman, twin, other}),
            (Entries{{"WALKMAN (3.2 GB free), /media/me/WALKMAN", "/media/me/WALKMAN"},
                     {"WALKMAN (3.2 GB free), /media/me/WALKMAN1", "/media/me/WALKMAN1"},
                     {"X (3.2 GB free)", "/media/me/X"}}));
}

TEST(DriveEntries, KeepTheBytesOfAPathWithAccents) {
  EXPECT_EQ(DriveEntries({{.root = "/media/Müsik/音楽"}}).at(0).path, "/media/Müsik/音楽");
}

const Entries kEntries = {{"/", "/"}, {"A (1 GB free)", "/media/a"}, {"B", "/media/a/b"}};

TEST(EntryAt, IsThatOfThePathWhateverItsText) {
  EXPECT_EQ(EntryAt(kEntries, "/media/a"), 1);
  EXPECT_EQ(EntryAt(kEntries, "A (1 GB free)"), -1);
  EXPECT_EQ(EntryAt({}, "/"), -1);
}

TEST(EntryHolding, IsTheInnermost) {
  EXPECT_EQ(EntryHolding(kEntries, "/media/a/b/c"), 2);
  EXPECT_EQ(EntryHolding(kEntries, "/media/a/bc"), 1);
  EXPECT_EQ(EntryHolding(kEntries, "/media"), 0);
}

TEST(EntryHolding, IsNoneWithoutDrives) { EXPECT_EQ(EntryHolding({}, "/"), -1); }

}  // namespace
}  // namespace repvolta
