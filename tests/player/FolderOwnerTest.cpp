#include <filesystem>
#include <gtest/gtest.h>

#include "player/FolderOwner.h"

#include "support/OwnedSong.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using Owner = FolderOwners::Owner;

class FolderOwner : public testing::Test {
 protected:
  FolderOwner() { fs::create_directory("folder"); }

  static void PutSong(const std::string& name, const std::string& album) {
    PutOwnedSong("folder/" + name, album);
  }

  static FolderOwners OwnersFor(const std::string& workout, const std::vector<std::string>& files) {
    return {workout, files, workout};
  }

  static Owner OwnerFor(const std::string& workout, const std::vector<std::string>& files) {
    return OwnersFor(workout, files).OwnerOf(FolderHandle::Open("folder"));
  }

  TemporaryFolder folder;
};

const std::vector<std::string> kWeeks{"Monday.RPV", "Week: 1.RPV", "Week? 1.RPV"};

TEST_F(FolderOwner, IsTheWorkoutThatTheFirstSongHasForItsAlbum) {
  PutSong("RV001-Instructions.mp3", "Week: 1.RPV");
  PutSong("RV002-Song.mp3", "Week? 1.RPV");
  EXPECT_EQ(OwnerFor("Week: 1", kWeeks), Owner::kThis);
  EXPECT_EQ(OwnerFor("Week? 1", kWeeks), Owner::kAnother);
}

TEST_F(FolderOwner, IsFoundWhereTheTagLacksTheNamesCharacters) {
  PutSong("RV001-Instructions.mp3", "Неделя: 1.RPV");
  EXPECT_EQ(OwnerFor("Неделя: 1", {"Неделя: 1.RPV", "Week: 1.RPV"}), Owner::kThis);
}

TEST_F(FolderOwner, IsTheWorkoutOfThePlayListWhereTheTagLacksTheNamesCharacters) {
  PutSong("RV001-Instructions.mp3", "Шаг.RPV");
  PutFile("folder/Шаг.M3U", "");
  EXPECT_EQ(OwnerFor("Шаг", {"Шаг.RPV", "шаг.RPV"}), Owner::kThis);
  EXPECT_EQ(OwnerFor("шаг", {"Шаг.RPV", "шаг.RPV"}), Owner::kAnother);
}

TEST_F(FolderOwner, IsTheWorkoutThatAloneCouldHaveTheNameOfThePlayList) {
  PutFile("folder/monday_ 1.M3U", "");
  EXPECT_EQ(OwnerFor("monday: 1", {"monday: 1.RPV", "Monday: 1.RPV"}), Owner::kThis);
  EXPECT_EQ(OwnerFor("Monday: 1", {"monday: 1.RPV", "Monday: 1.RPV"}), Owner::kAnother);
}

TEST_F(FolderOwner, IsNobodyWhenItsWorkoutIsGone) {
  PutSong("RV001-Instructions.mp3", "Week* 1.RPV");
  EXPECT_EQ(OwnerFor("Week: 1", kWeeks), Owner::kUnknown);
}

TEST_F(FolderOwner, IsTheWorkoutOfThePlayListWhereNothingHasATag) {
  PutFile("folder/RV001-Instructions.WAV", "");
  PutFile("folder/monday.M3U", "");
  EXPECT_EQ(OwnerFor("Monday", {"Monday.RPV", "monday.RPV"}), Owner::kAnother);
  EXPECT_EQ(OwnerFor("monday", {"Monday.RPV", "monday.RPV"}), Owner::kThis);
}

TEST_F(FolderOwner, IsNotToldByAPlayListWhoseNameTwoWorkoutsWouldGet) {
  PutFile("folder/Week_ 1.M3U", "");
  EXPECT_EQ(OwnerFor("Week: 1", {"Week: 1.RPV", "Week_ 1.RPV"}), Owner::kUnknown);
}

TEST_F(FolderOwner, HasRivalsWhoseFoldersOneDiskCouldKeepAsOne) {
  EXPECT_TRUE(OwnersFor("Week: 1", kWeeks).HasRivals());
  EXPECT_TRUE(OwnersFor("monday", {"Monday.RPV", "monday.RPV"}).HasRivals());
  EXPECT_TRUE(OwnersFor("Rest", {"Rest.RPV", "Rest...RPV"}).HasRivals());
  EXPECT_FALSE(OwnersFor("Monday", kWeeks).HasRivals());
}

TEST_F(FolderOwner, HasRivalsByLettersThatHaveOneCapital) {
  EXPECT_TRUE(OwnersFor("σ", {"σ.RPV", "ς.RPV"}).HasRivals());
  EXPECT_TRUE(OwnersFor("\u00B5", {"\u00B5.RPV", "\u03BC.RPV"}).HasRivals());
}

TEST_F(FolderOwner, HasRivalsOnlyByTheNameThatTheFolderShallGet) {
  const std::vector<std::string> files{"走.RPV", "道.RPV"};
  EXPECT_FALSE(FolderOwners("走", files, "走").HasRivals());
  EXPECT_TRUE(FolderOwners("走", files, "_").HasRivals());
}

TEST_F(FolderOwner, IsNoRivalOfItselfInAnotherSpelling) {
  EXPECT_FALSE(OwnersFor("monday", {"Monday.RPV", "Tuesday.RPV"}).HasRivals());
}

TEST_F(FolderOwner, ComesBehindTheRivalsWhoseNamesEveryDiskHolds) {
  const std::vector<std::string> files{"Week: 1.RPV", "Week? 1.RPV", "Week_ 1.RPV"};
  EXPECT_EQ(OwnersFor("Week_ 1", files).Rank(), 0U);
  EXPECT_EQ(OwnersFor("Week: 1", files).Rank(), 1U);
  EXPECT_EQ(OwnersFor("Week? 1", files).Rank(), 2U);
}

TEST_F(FolderOwner, KnowsAFolderOfUpdatesByItsFiles) {
  const auto isOfUpdates = [] { return FolderOwners::IsOfUpdates(FolderHandle::Open("folder")); };
  for (const char* file : {"RV001-Instructions.mp3", "RV002-Song.mp3", "a.M3U", "a.m3u8"}) {
    PutFile(std::string("folder/") + file, "");
  }
  EXPECT_TRUE(isOfUpdates());
  PutFile("folder/photo.jpg", "");
  EXPECT_FALSE(isOfUpdates());
}

TEST_F(FolderOwner, TakesPlayListsWithoutFilesForThePersonsOwn) {
  const auto isOfUpdates = [] { return FolderOwners::IsOfUpdates(FolderHandle::Open("folder")); };
  fs::create_directories("folder");
  EXPECT_TRUE(isOfUpdates());
  PutFile("folder/mine.m3u8", "");
  EXPECT_FALSE(isOfUpdates());
  PutFile("folder/mine.M3U", "");
  EXPECT_FALSE(isOfUpdates());
}

}  // namespace
}  // namespace repvolta
