#include <cerrno>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/Text.h"
#include "player/PlayerNames.h"

namespace repvolta {
namespace {

using testing::Contains;
using testing::ElementsAre;

TEST(MendedName, HasALineForEachCharacterThatPlayersCannotHold) {
  EXPECT_EQ(MendedName("What's up?.mp3"), "What's up_.mp3");
  EXPECT_EQ(MendedName("<>:\"/\\|?*.mp3"), "_________.mp3");
  EXPECT_EQ(MendedName("a\tb\x7F.mp3"), "a_b_.mp3");
}

TEST(MendedName, HasALineForEachByteThatBelongsToNoCharacter) {
  EXPECT_EQ(MendedName("S\xF2ng \xE2\x82.mp3"), "S_ng __.mp3");
  EXPECT_EQ(MendedName("Sòng 🎵.mp3"), "Sòng 🎵.mp3");
}

TEST(MendedName, EndsInNoBlankAndNoDot) {
  EXPECT_EQ(MendedName("Week . ."), "Week");
  EXPECT_EQ(MendedName("Song .mp3"), "Song .mp3");
  EXPECT_EQ(MendedName("..."), "_");
  EXPECT_EQ(MendedName(""), "_");
}

TEST(MendedName, IsNoReservedName) {
  EXPECT_EQ(MendedName("CON"), "CON_");
  EXPECT_EQ(MendedName("nul.M3U"), "nul_.M3U");
  EXPECT_EQ(MendedName("Aux .a.b"), "Aux_ .a.b");
  EXPECT_EQ(MendedName("com1"), "com1_");
  EXPECT_EQ(MendedName("LPT9.mp3"), "LPT9_.mp3");
  for (const char* name : {"CONE", "COM0", "COM10", "LPT", "RV001-CON.mp3"}) {
    EXPECT_EQ(MendedName(name), name);
  }
}

TEST(PlayerNames, AreOnlyTheNameWhereEveryPlayerHoldsIt) {
  EXPECT_THAT(PlayerNames("RV002-Song (live) & more.mp3"),
              ElementsAre("RV002-Song (live) & more.mp3"));
}

TEST(PlayerNames, BeginWithTheNameAsItIs) {
  EXPECT_THAT(PlayerNames("RV002-Say \"gó\".mp3"),
              ElementsAre("RV002-Say \"gó\".mp3", "RV002-Say _gó_.mp3", "RV002-Say _g__.mp3"));
}

TEST(PlayerNames, AreCutBeforeTheExtension) {
  const std::string name = "RV002-" + std::string(252, 'x') + ".mp3";
  EXPECT_THAT(PlayerNames(name), ElementsAre(name, "RV002-" + std::string(245, 'x') + ".mp3"));
}

TEST(PlayerNames, AreCutBetweenCharactersAfterUnitsAndThenAfterBytes) {
  std::string notes;
  for (int i = 0; i < 130; ++i) notes += "🎵";
  const std::vector<std::string> names = PlayerNames("RV002-" + notes + ".mp3");
  // 122 of the characters have 244 units, 61 of them 244 bytes.
  EXPECT_EQ(names[1], "RV002-" + notes.substr(0, 122 * 4) + ".mp3");
  EXPECT_EQ(names[2], "RV002-" + notes.substr(0, 61 * 4) + ".mp3");
  for (const std::string& name : names) EXPECT_TRUE(IsUtf8(name)) << name;
}

TEST(PlayerNames, AreCutAtTheirEndWhereNoExtensionIsNear) {
  const std::string name = "Week 1." + std::string(300, 'x');
  EXPECT_THAT(PlayerNames(name), Contains(name.substr(0, 255)));
}

TEST(PlayerNames, EndInNoBlankWhenTheyWereCutThere) {
  const std::string name = std::string(254, ':') + " and more";
  EXPECT_EQ(PlayerNames(name).back(), std::string(254, '_'));
}

TEST(MayRefuseName, IsNotWhatFullAndLockedDisksSay) {
  for (const int error : {EINVAL, ENOENT, EPERM, ENAMETOOLONG, EILSEQ, EACCES, EIO}) {
    EXPECT_TRUE(MayRefuseName(error)) << error;
  }
  for (const int error : {0, ENOSPC, EDQUOT, EROFS, EEXIST, EMFILE, ENFILE, ENOMEM, ENODEV}) {
    EXPECT_FALSE(MayRefuseName(error)) << error;
  }
}

}  // namespace
}  // namespace repvolta
