#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/Days.h"
#include "base/FileError.h"
#include "keeping/Versions.h"

#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

class Versions : public testing::Test {
 protected:
  Versions() { fs::create_directory("workouts"); }

  static void Write(const std::string& content) { PutFile("workouts/Monday.RPV", content); }

  static void Keep(double now, BeforeWhat before = BeforeWhat::kChange) {
    KeepVersion("workouts/Monday.RPV", before, now);
  }

  static std::vector<std::string> Contents() {
    std::vector<std::string> contents;
    for (const Version& version : VersionsOf("Monday.RPV"))
      contents.push_back(GetTextFile(version.path));
    return contents;
  }

  TemporaryFolder folder_;
  const double today_ = DateOf(2026, 11, 22);
};

TEST_F(Versions, AreTheFileByteForByte) {
  const std::string content("a\0\r\n\xFF", 5);
  Write(content);
  Keep(today_);
  EXPECT_THAT(Contents(), ElementsAre(content));
}

TEST_F(Versions, AreOnlySaidToBeKeptWhenTheyAre) {
  EXPECT_FALSE(KeepVersion("workouts/Monday.RPV", BeforeWhat::kChange, today_));
  Write("1");
  EXPECT_TRUE(KeepVersion("workouts/Monday.RPV", BeforeWhat::kChange, today_));
  EXPECT_TRUE(KeepVersion("workouts/Monday.RPV", BeforeWhat::kChange, today_ + 1));
  fs::resize_file("workouts/Monday.RPV", 1'000'001);
  EXPECT_FALSE(KeepVersion("workouts/Monday.RPV", BeforeWhat::kChange, today_ + 2));
}

TEST_F(Versions, AreKeptWhereTheirNamesSay) {
  Write("1");
  Keep(today_ + 0.5, BeforeWhat::kUpdate);
  EXPECT_TRUE(fs::exists("versions/Monday/2026-11-22 12.00.00 before update.RPV"));
}

TEST_F(Versions, AreInTheOrderOfTime) {
  Write("1");
  Keep(today_);
  Write("2");
  Keep(today_ + 0.5);
  EXPECT_THAT(Contents(), ElementsAre("1", "2"));
}

TEST_F(Versions, ThatAreEqualAreKeptOnce) {
  Write("1");
  Keep(today_);
  Keep(today_ + 0.5);
  EXPECT_THAT(Contents(), ElementsAre("1"));
}

TEST_F(Versions, OfTheSameSecondAreAllKeptInTheirOrder) {
  for (const char* content : {"1", "2", "3"}) {
    Write(content);
    Keep(today_);
  }
  EXPECT_THAT(Contents(), ElementsAre("1", "2", "3"));
}

TEST_F(Versions, AreInTheirOrderAlsoWhenTheClockWasPutBack) {
  Write("1");
  Keep(today_ + 100);
  Write("2");
  Keep(today_);
  EXPECT_THAT(Contents(), ElementsAre("1", "2"));
}

TEST_F(Versions, OfAFileThatIsNotThereAreNone) {
  Keep(today_);
  EXPECT_THAT(Contents(), IsEmpty());
  EXPECT_FALSE(fs::exists("versions"));
}

TEST_F(Versions, OfSomethingMuchLargerThanAWorkoutAreNone) {
  Write(std::string(1'000'001, 'x'));
  Keep(today_);
  EXPECT_THAT(Contents(), IsEmpty());
}

TEST_F(Versions, AreDroppedWhenTheyAreNoLongerNeeded) {
  Write("1");
  Keep(today_ - 400);
  Write("2");
  Keep(today_);
  EXPECT_THAT(Contents(), ElementsAre("2"));
}

TEST_F(Versions, LeaveWhatElseLiesThere) {
  Write("1");
  PutFile("versions/Monday/notes.txt", "mine");
  fs::create_directory("versions/Monday/2020-11-22 12.00.00 before update.RPV");
  Keep(today_);
  EXPECT_THAT(Contents(), ElementsAre("1"));
  EXPECT_EQ(GetTextFile("versions/Monday/notes.txt"), "mine");
}

TEST_F(Versions, ThatCannotBeWrittenLeaveNothing) {
  Write("1");
  PutFile("versions", "a file where the folder should be");
  EXPECT_THROW(Keep(today_), FileError);
  EXPECT_EQ(GetTextFile("workouts/Monday.RPV"), "1");
}

TEST_F(Versions, GoAlongWithANewName) {
  Write("1");
  Keep(today_);
  MoveVersions("Monday.RPV", "Push.RPV");
  EXPECT_THAT(Contents(), IsEmpty());
  const auto moved = VersionsOf("Push.RPV");
  ASSERT_EQ(moved.size(), 1U);
  EXPECT_EQ(GetTextFile(moved[0].path), "1");
  EXPECT_FALSE(fs::exists("versions/Monday"));
}

TEST_F(Versions, ThatGoAlongJoinThoseThatAreThere) {
  PutFile("versions/Push/2020-11-22 12.00.00 before update.RPV", "old");
  Write("1");
  Keep(today_);
  MoveVersions("Monday.RPV", "Push.RPV");
  EXPECT_EQ(VersionsOf("Push.RPV").size(), 2U);
}

TEST_F(Versions, ThatCannotGoAlongAreNotLost) {
  const std::string name = "2020-11-22 12.00.00 before update.RPV";
  PutFile("versions/Push/" + name, "theirs");
  PutFile("versions/Monday/" + name, "ours");
  EXPECT_THROW(MoveVersions("Monday.RPV", "Push.RPV"), FileError);
  EXPECT_EQ(GetTextFile("versions/Push/" + name), "theirs");
  EXPECT_EQ(GetTextFile("versions/Monday/" + name), "ours");
}

}  // namespace
}  // namespace repvolta
