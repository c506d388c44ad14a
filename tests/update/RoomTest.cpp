#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "update/Room.h"
#include "update/UpdateFixture.h"

#include "support/FakeDisk.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

TEST(RoomOfDisk, IsThatOfTheFolder) {
  const FakeDisk disk(FakeDisk::Figures{.free = 5 * 4096, .whole = 10 * 4096, .unit = 4096});
  const auto room = RoomOf("/");
  ASSERT_TRUE(room);
  EXPECT_EQ(room->free, 5U * 4096);
  EXPECT_EQ(room->unit, 4096U);
}

TEST(RoomOfDisk, IsAskedOfTheSystem) {
  ASSERT_TRUE(RoomOf("/"));
  EXPECT_GT(RoomOf("/")->unit, 0U);
}

TEST(RoomOfDisk, IsNotKnownWhereTheDiskCannotTell) {
  {
    const FakeDisk disk(std::nullopt);
    EXPECT_FALSE(RoomOf("/"));
  }
  const FakeDisk zeros(FakeDisk::Figures{});
  EXPECT_FALSE(RoomOf("/"));
}

TEST(RoomOfDisk, MayBeNone) {
  const FakeDisk disk(Free(0));
  ASSERT_TRUE(RoomOf("/"));
  EXPECT_EQ(RoomOf("/")->free, 0U);
}

TEST(RoomTaken, IsThatOfAllFilesInTheFolder) {
  const TemporaryFolder folder;
  PutFile("player/a.mp3", Bytes(10'000, 'a'));
  PutFile("player/deep/b.mp3", Bytes(20'000, 'b'));
  fs::create_symlink("a.mp3", "player/link");
  fs::create_directory_symlink("/usr", "player/elsewhere");
  const std::uint64_t taken = RoomTakenBy("player/");
  EXPECT_GE(taken, 30'000U);
  EXPECT_LE(taken, 200'000U);
}

TEST(RoomTaken, IsNoneWithoutAFolder) {
  const TemporaryFolder folder;
  PutFile("file", Bytes(10'000, 'a'));
  fs::create_directory_symlink("/usr", "link");
  EXPECT_EQ(RoomTakenBy("gone/"), 0U);
  EXPECT_EQ(RoomTakenBy("file"), 0U);
  EXPECT_EQ(RoomTakenBy("link/"), 0U);
}

TEST(LackOfRoomText, RoundsSoThatTheNumbersNeverLookEqual) {
  EXPECT_EQ(TextOf({.needed = 812'000'000, .room = 300'000'000}),
            "needs 812 MB, there is room for 300 MB");
  EXPECT_EQ(TextOf({.needed = 300'000'001, .room = 300'000'000}),
            "needs 301 MB, there is room for 300 MB");
  EXPECT_EQ(TextOf({.needed = 300'000'000, .room = 299'999'999}),
            "needs 300 MB, there is room for 299 MB");
  EXPECT_EQ(TextOf({.needed = 1, .room = 0}), "needs 1 MB, there is room for 0 MB");
}

class LackingRoom : public UpdateFixture {
 protected:
  LackingRoom() {
    PutFile("music/song.mp3", SongBytes(300));
    ExerciseRecord& exercise = AddNamed("Squat");
    AddSong(exercise, Full("music/song.mp3"));
  }

  std::optional<LackOfRoom> Lack() const { return FindLackOfRoom({&state}, kToday); }

  static constexpr std::uint64_t kSong = 300 * 4000;
};

TEST_F(LackingRoom, IsFoundBeforeTheUpdate) {
  const FakeDisk disk(Free(kSong / 2));
  const auto lack = Lack();
  ASSERT_TRUE(lack);
  EXPECT_EQ(lack->room, kSong / 2);
  EXPECT_GT(lack->needed, kSong);
  EXPECT_LT(lack->needed, kSong + 100'000);
}

TEST_F(LackingRoom, IsNotFoundWhereAllFits) {
  const FakeDisk disk(Free(kSong + 100'000));
  EXPECT_EQ(Lack(), std::nullopt);
}

TEST_F(LackingRoom, IsNotFoundWhereTheDiskCannotTell) {
  const FakeDisk disk(std::nullopt);
  EXPECT_EQ(Lack(), std::nullopt);
}

TEST_F(LackingRoom, CountsTheRoomOfTheOldFolder) {
  PutFile("player/Monday/RV002-old.mp3", Bytes(kSong, 'x'));
  const FakeDisk disk(Free(100'000));
  EXPECT_EQ(Lack(), std::nullopt);
  PutFile("player/Monday/RV002-old.mp3", "");
  EXPECT_TRUE(Lack());
}

TEST_F(LackingRoom, CountsTheOldFolderUnderTheNameThatTheDiskKeeps) {
  state.WorkoutFileName = "Week: 1.RPV";
  PutFile("player/Week_ 1/RV002-old.mp3", Bytes(kSong, 'x'));
  const FakeDisk disk(Free(100'000));
  EXPECT_EQ(Lack(), std::nullopt);
}

TEST_F(LackingRoom, CountsNothingOutsideTheOutputPath) {
  state.WorkoutFileName = "...RPV";
  const FakeDisk disk(Free(100'000));
  EXPECT_TRUE(Lack());
}

TEST_F(LackingRoom, IsThatOfAllWorkoutsTogether) {
  ProgramState other = state;
  other.WorkoutFileName = "Tuesday.RPV";
  const FakeDisk disk(Free(kSong * 3 / 2));
  EXPECT_EQ(Lack(), std::nullopt);
  const auto lack = FindLackOfRoom({&state, &other}, kToday);
  ASSERT_TRUE(lack);
  EXPECT_GT(lack->needed, 2 * kSong);
  EXPECT_EQ(FindLackOfRoom({}, kToday), std::nullopt);
}

TEST_F(LackingRoom, NeedsNoLookAtTheSongsWhereTheirTimesPromiseRoom) {
  state.Workout[0].MusicFilePlayTime[0] = 300;
  // A look would find more than there is.
  PutFile("music/song.mp3", Bytes(50'000'000, 'x'));
  const FakeDisk disk(Free(40'000'000));
  EXPECT_EQ(Lack(), std::nullopt);
  state.Workout[0].MusicFilePlayTime[0] = 0;
  EXPECT_TRUE(Lack());
}

}  // namespace
}  // namespace repvolta
