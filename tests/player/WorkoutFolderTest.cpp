#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/FileError.h"
#include "player/WorkoutFolder.h"

#include "support/HiddenFile.h"
#include "support/OwnedSong.h"
#include "support/RefusingDisk.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

constexpr const char* kForbidden = "<>:\"\\|?*";

class FolderOnAPlayer : public testing::Test {
 protected:
  FolderOnAPlayer() { fs::create_directory("player"); }

  /// What an update of the workout leaves in its folder.
  static void PutSong(const std::string& place, const std::string& workout) {
    PutOwnedSong("player/" + place + "/RV001-Instructions.mp3", workout + ".RPV");
  }

  /// Makes the workout's folder and returns its name.
  std::string Make(const std::string& workout) const {
    WorkoutFolder made(folder.Path() + "player", workout);
    Keepsakes keep;
    keep.workouts = workouts;
    made.Clear(keep);
    made.Create();
    EXPECT_TRUE(fs::is_empty(made.Path())) << made.Path();
    EXPECT_EQ(made.Path(), folder.Path() + "player/" + made.Name() + "/");
    return made.Name();
  }

  TemporaryFolder folder;
  std::vector<std::string> workouts{"Monday.RPV", "Week: 1.RPV"};
};

TEST_F(FolderOnAPlayer, HasTheWorkoutsNameWhereThePlayerHoldsIt) {
  EXPECT_EQ(Make("Week: 1"), "Week: 1");
}

TEST_F(FolderOnAPlayer, HasTheNearestNameThatThePlayerHolds) {
  for (const int error : {ENOENT, EINVAL, EPERM}) {
    const RefusingDisk disk(kForbidden, error);
    EXPECT_EQ(Make("Week: 1"), "Week_ 1");
    PutSong("Week_ 1", "Week: 1");
    EXPECT_EQ(Make("Week: 1"), "Week_ 1");
  }
}

TEST_F(FolderOnAPlayer, HasTheNearestNameWhereThePlayerRefusesToLookForItsOwn) {
  for (const int error : {EINVAL, EIO}) {
    const RefusingDisk disk(kForbidden, error);
    const HiddenFile refused("Week: 1", error);
    EXPECT_EQ(Make("Week: 1"), "Week_ 1");
  }
}

TEST_F(FolderOnAPlayer, IsNotMadeWhereThePlayerCannotTellOfAnOrdinaryName) {
  const HiddenFile broken("Monday", EIO);
  EXPECT_THROW(Make("Monday"), FileError);
  EXPECT_TRUE(fs::is_empty("player"));
}

TEST_F(FolderOnAPlayer, ReportsTheFirstErrorWhereNoNameIsTaken) {
  const RefusingDisk disk("We", EPERM);
  try {
    Make("Week: 1");
    FAIL();
  } catch (const FileError& error) {
    EXPECT_THAT(error.what(), HasSubstr("player/Week: 1/ could not be created: Operation not"));
  }
}

TEST_F(FolderOnAPlayer, TriesNoOtherNameWhereTheDiskIsFull) {
  const RefusingDisk disk(":", ENOSPC);
  EXPECT_THROW(Make("Week: 1"), FileError);
  EXPECT_TRUE(fs::is_empty("player"));
}

TEST_F(FolderOnAPlayer, IsNotThatOfAnotherWorkoutWithTheSameNameThere) {
  workouts = {"Week: 1.RPV", "Week? 1.RPV"};
  const RefusingDisk disk(kForbidden);
  EXPECT_EQ(Make("Week: 1"), "Week_ 1");
  PutSong("Week_ 1", "Week: 1");
  EXPECT_EQ(Make("Week? 1"), "Week_ 1 (2)");
  PutSong("Week_ 1 (2)", "Week? 1");

  // It stays so, in whatever order they are updated.
  EXPECT_EQ(Make("Week? 1"), "Week_ 1 (2)");
  EXPECT_TRUE(fs::exists("player/Week_ 1/RV001-Instructions.mp3"));
  PutSong("Week_ 1 (2)", "Week? 1");
  EXPECT_EQ(Make("Week: 1"), "Week_ 1");
  EXPECT_TRUE(fs::exists("player/Week_ 1 (2)/RV001-Instructions.mp3"));
}

TEST_F(FolderOnAPlayer, IsApartFromAWorkoutThatReallyHasTheName) {
  workouts = {"Week: 1.RPV", "Week_ 1.RPV"};
  const RefusingDisk disk(kForbidden);
  EXPECT_EQ(Make("Week: 1"), "Week_ 1 (2)");
  EXPECT_EQ(Make("Week_ 1"), "Week_ 1");
}

TEST_F(FolderOnAPlayer, IsApartFromThatOfAWorkoutThatCameBeforeIt) {
  PutSong("Week_ 1", "Week: 1");
  workouts = {"Week: 1.RPV", "Week_ 1.RPV"};
  EXPECT_EQ(Make("Week_ 1"), "Week_ 1 (2)");
  EXPECT_TRUE(fs::exists("player/Week_ 1/RV001-Instructions.mp3"));
}

TEST_F(FolderOnAPlayer, IsApartFromTheOneInAnotherCaseOnADiskWithoutCase) {
  // On such a disk the folder "Monday" answers to "monday", too.
  PutSong("monday", "Monday");
  workouts = {"Monday.RPV", "monday.RPV"};
  EXPECT_EQ(Make("monday"), "monday (2)");
  EXPECT_TRUE(fs::exists("player/monday/RV001-Instructions.mp3"));
}

TEST_F(FolderOnAPlayer, IsApartFromTheOneInAnotherCaseWhoseTagLacksTheNamesCharacters) {
  PutSong("шаг", "Шаг");
  PutFile("player/шаг/Шаг.M3U", "");
  workouts = {"Шаг.RPV", "шаг.RPV"};
  EXPECT_EQ(Make("шаг"), "шаг (2)");
  EXPECT_TRUE(fs::exists("player/шаг/RV001-Instructions.mp3"));
}

TEST_F(FolderOnAPlayer, IsApartFromAnotherOnADiskThatHoldsOnlyPlainLetters) {
  workouts = {"走.RPV", "道.RPV"};
  const RefusingDisk disk("\xE8\xE9");
  for (int update = 0; update < 2; ++update) {
    EXPECT_EQ(Make("走"), "_");
    PutSong("_", "走");
    EXPECT_EQ(Make("道"), "_ (2)");
    PutSong("_ (2)", "道");
    EXPECT_TRUE(fs::exists("player/_/RV001-Instructions.mp3"));
  }
}

TEST_F(FolderOnAPlayer, TakesNoNameWithANumberThatIsAnotherWorkouts) {
  PutSong("monday", "Monday");
  workouts = {"Monday.RPV", "monday.RPV", "Monday (2).RPV"};
  EXPECT_EQ(Make("monday"), "monday (3)");
}

TEST_F(FolderOnAPlayer, IsNotAFolderOfThePersonsOwnUnderANameThatTheyHaveNotGiven) {
  PutFile("player/Week_ 1/photo.jpg", "mine");
  const RefusingDisk disk(kForbidden);
  EXPECT_EQ(Make("Week: 1"), "Week_ 1 (2)");
  EXPECT_EQ(GetTextFile("player/Week_ 1/photo.jpg"), "mine");
}

TEST_F(FolderOnAPlayer, TakesTheFolderOfAWorkoutThatIsGone) {
  PutSong("Week_ 1", "Week* 1");
  const RefusingDisk disk(kForbidden);
  EXPECT_EQ(Make("Week: 1"), "Week_ 1");
}

}  // namespace
}  // namespace repvolta
