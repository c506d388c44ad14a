#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/Options.h"
#include "player/PlayerPlayList.h"
#include "update/Steps.h"
#include "update/UpdateFixture.h"

#include "support/UnreadableFile.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

/// An update that also writes a play list for the player, unless the test changes its mind.
class PlayListForPlayer : public UpdateFixture {
 protected:
  PlayListForPlayer() { Put(state.Options, kPlayListForPlayer, true); }

  void AddSquatWithSongs() {
    PutFile("music/Rain.mp3", SongBytes(75));
    PutFile("music/Sun.mp3", SongBytes(20));
    ExerciseRecord& exercise = AddNamed("Squat");
    AddSong(exercise, Full("music/Rain.mp3"));
    AddSong(exercise, Full("music/gone.mp3"));
    AddSong(exercise, Full("music/Sun.mp3"));
  }

  static constexpr const char* kList = "player/Monday/Monday.m3u8";
};

TEST_F(PlayListForPlayer, ListsWhatIsThereInPlayOrder) {
  AddSquatWithSongs();
  Update();
  EXPECT_EQ(GetTextFile(kList),
            "#EXTM3U\r\n"
            "#EXTINF:1,RV001- Squat - 0 sets\r\nRV001-Instructions.mp3\r\n"
            "#EXTINF:75,RV002- Squat - 0 sets\r\nRV002-Rain.mp3\r\n"
            "#EXTINF:20,RV003- Squat - 0 sets\r\nRV003-Sun.mp3\r\n");
}

TEST_F(PlayListForPlayer, IsWrittenOnlyWhenItIsWanted) {
  Put(state.Options, kPlayListForPlayer, false);
  AddSquatWithSongs();
  Update();
  EXPECT_FALSE(fs::exists(kList));
}

TEST_F(PlayListForPlayer, LeavesThePlayListOfThisComputerAsItIs) {
  AddSquatWithSongs();
  Put(state.Options, kPlayListForPlayer, false);
  Update();
  const std::string without = PlayList();
  Put(state.Options, kPlayListForPlayer, true);
  Update();
  EXPECT_EQ(PlayList(), without);
}

TEST_F(PlayListForPlayer, NamesAnInstructionWithoutTagByItsFile) {
  fs::remove("lame.exe");
  AddNamed("Squat");
  Update();
  EXPECT_EQ(GetTextFile(kList),
            "#EXTM3U\r\n#EXTINF:-1,RV001-Instructions\r\nRV001-Instructions.WAV\r\n");
}

TEST_F(PlayListForPlayer, IsMadeAnewByEachUpdate) {
  AddSquatWithSongs();
  Update();
  state.Workout[0].NumberOfMusicFiles = 0;
  Update();
  EXPECT_EQ(GetTextFile(kList),
            "#EXTM3U\r\n#EXTINF:1,RV001- Squat - 0 sets\r\nRV001-Instructions.mp3\r\n");
}

TEST_F(PlayListForPlayer, IsNotMadeWithoutFiles) {
  Update();
  EXPECT_FALSE(fs::exists(kList));
}

TEST_F(PlayListForPlayer, ListsWhatIsThereWhenTheUpdateIsStopped) {
  AddSquatWithSongs();
  run.stopRequested = [&] {
    return fs::exists("player/Monday/Monday.M3U") && PlayList().find("Rain") != std::string::npos;
  };
  EXPECT_THROW(Update(), UpdateStopped);
  EXPECT_EQ(GetTextFile(kList),
            "#EXTM3U\r\n"
            "#EXTINF:1,RV001- Squat - 0 sets\r\nRV001-Instructions.mp3\r\n"
            "#EXTINF:75,RV002- Squat - 0 sets\r\nRV002-Rain.mp3\r\n");
}

TEST_F(PlayListForPlayer, ThatCannotBeWrittenIsTold) {
  AddSquatWithSongs();
  PutFolderInTheWay(kList);
  Update();
  EXPECT_THAT(run.log, Contains(StartsWith("ERROR: ")).Times(2));
  EXPECT_THAT(run.log, Contains(HasSubstr("Monday.m3u8")));
  EXPECT_EQ(run.log.back(), "UPDATE COMPLETE.");
}

TEST_F(PlayListForPlayer, DoesNotCountAsASongThatIsKept) {
  AddSquatWithSongs();
  Update();
  PutFile("workouts/Other.RPV", "");
  const UnreadableFile unreadable("workouts/Other.RPV");
  Update();
  // Songs of other workouts are looked for only where a file may be one.
  EXPECT_THAT(run.log, Not(Contains(HasSubstr("is not deleted"))));
  EXPECT_THAT(run.log, Not(Contains(HasSubstr("could not be read"))));
}

}  // namespace
}  // namespace repvolta
