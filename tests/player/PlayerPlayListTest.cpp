#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/Text.h"
#include "player/PlayerPlayList.h"

#include "support/SongBytes.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

using testing::HasSubstr;

TEST(PlayerPlayList, HasATitleAndATimeForEachName) {
  PlayerPlayList list;
  list.Add({.name = "RV001-Instructions.mp3", .title = "RV001- Squat - 1 set", .seconds = 4});
  list.Add({.name = "RV002-Été.mp3", .title = "RV002- Squat - 1 set", .seconds = 215});
  EXPECT_EQ(list.Text(),
            "#EXTM3U\r\n"
            "#EXTINF:4,RV001- Squat - 1 set\r\n"
            "RV001-Instructions.mp3\r\n"
            "#EXTINF:215,RV002- Squat - 1 set\r\n"
            "RV002-Été.mp3\r\n");
}

TEST(PlayerPlayList, SaysMinusOneWhereThePlayTimeIsNotKnown) {
  PlayerPlayList list;
  list.Add({.name = "a.mp3", .title = "a"});
  EXPECT_THAT(list.Text(), HasSubstr("#EXTINF:-1,a\r\n"));
}

TEST(PlayerPlayList, ReadsWhatIsNotUtf8AsTheCodePage) {
  PlayerPlayList list;
  list.Add({.name = "RV002-\xC9t\xE9.mp3", .title = "\x80uro"});
  EXPECT_THAT(list.Text(), HasSubstr(",€uro\r\nRV002-Été.mp3\r\n"));
  EXPECT_TRUE(IsUtf8(list.Text()));
}

TEST(PlayerPlayList, LeavesOutANameThatWouldBecomeTwoLines) {
  PlayerPlayList list;
  list.Add({.name = "two\nlines.mp3", .title = "x"});
  list.Add({.name = "two\rlines.mp3", .title = "x"});
  EXPECT_TRUE(list.IsEmpty());
}

TEST(PlayerPlayList, KeepsATitleOnItsLine) {
  PlayerPlayList list;
  list.Add({.name = "a.mp3", .title = "two\r\nlines\ttab"});
  EXPECT_THAT(list.Text(), HasSubstr(",two  lines tab\r\na.mp3\r\n"));
}

TEST(PlayTimeForPlayers, IsThatOfTheProgram) {
  const TemporaryFolder folder;
  PutFile("song.mp3", SongBytes(75));
  PutFile("noise.mp3", "no frame");
  EXPECT_EQ(SecondsOf("song.mp3"), 75);
  EXPECT_EQ(SecondsOf("noise.mp3"), kUnknownSeconds);
  EXPECT_EQ(SecondsOf("missing.mp3"), kUnknownSeconds);
}

}  // namespace
}  // namespace repvolta
