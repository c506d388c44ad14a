#include <filesystem>
#include <gtest/gtest.h>

#include "update/FolderOwner.h"
#include "update/ProcessMP3tag.h"

#include "fakes/RecordingLog.h"
#include "support/SongBytes.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using Owner = FolderOwners::Owner;

class FolderOwner : public testing::Test {
 protected:
  FolderOwner() { fs::create_directory("folder"); }

  static void PutSong(const std::string& name, const std::string& album) {
    PutFile("folder/" + name, SongBytes(3));
    RecordingLog log;
    ProcessMP3tag("folder/" + name, "Squat", album, log);
  }

  static Owner OwnerFor(const std::string& workout, const std::vector<std::string>& files) {
    return FolderOwners(workout, files).OwnerOf(FolderHandle::Open("folder"));
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
  EXPECT_TRUE(FolderOwners("Week: 1", kWeeks).HasRivals());
  EXPECT_TRUE(FolderOwners("monday", {"Monday.RPV", "monday.RPV"}).HasRivals());
  EXPECT_TRUE(FolderOwners("Rest", {"Rest.RPV", "Rest...RPV"}).HasRivals());
  EXPECT_FALSE(FolderOwners("Monday", kWeeks).HasRivals());
}

TEST_F(FolderOwner, IsNoRivalOfItselfInAnotherSpelling) {
  EXPECT_FALSE(FolderOwners("monday", {"Monday.RPV", "Tuesday.RPV"}).HasRivals());
}

TEST_F(FolderOwner, ComesBehindTheRivalsWhoseNamesEveryDiskHolds) {
  const std::vector<std::string> files{"Week: 1.RPV", "Week? 1.RPV", "Week_ 1.RPV"};
  EXPECT_EQ(FolderOwners("Week_ 1", files).Rank(), 0U);
  EXPECT_EQ(FolderOwners("Week: 1", files).Rank(), 1U);
  EXPECT_EQ(FolderOwners("Week? 1", files).Rank(), 2U);
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

}  // namespace
}  // namespace repvolta
