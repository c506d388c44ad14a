#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <utility>

#include "app/Options.h"
#include "app/RecordFormat.h"
#include "backup/BackupContents.h"
#include "backup/PathExchange.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::vector<PathExchange> kMoved = {{"/home/old", "/home/new"}};

Bytes Exchange(BackupKind kind, std::span<const Byte> file) {
  return ExchangePaths(kind, file, kMoved).content;
}

TEST(ExchangedPath, HasTheOtherFolder) {
  EXPECT_EQ(ExchangedPath("/home/old/Music/a.mp3", kMoved), "/home/new/Music/a.mp3");
  EXPECT_EQ(ExchangedPath("/home/old", kMoved), "/home/new");
  EXPECT_EQ(ExchangedPath("/home/old/", kMoved), "/home/new");
}

TEST(ExchangedPath, StaysInOtherFolders) {
  for (const char* path : {"/home/older/a.mp3", "/home/ol", "/home", "home/old/a", "", "/"}) {
    EXPECT_EQ(ExchangedPath(path, kMoved), path);
  }
}

TEST(ExchangedPath, FollowsTheInnermostFolder) {
  const std::vector<PathExchange> exchanges = {
      {"/home/old", "/home/new"}, {"/home/old/Music", "/music"}, {"/home", "/elsewhere"}};
  EXPECT_EQ(ExchangedPath("/home/old/Music/a.mp3", exchanges), "/music/a.mp3");
  EXPECT_EQ(ExchangedPath("/home/old/b.mp3", exchanges), "/home/new/b.mp3");
}

TEST(ExchangedPath, StaysWhileThePersonHasNotSaidWhere) {
  EXPECT_EQ(ExchangedPath("/mnt/a.mp3", {{"/mnt", ""}}), "/mnt/a.mp3");
  EXPECT_EQ(ExchangedPath("/mnt/a.mp3", {{"", "/x"}}), "/mnt/a.mp3");
}

TEST(ExchangedPath, HasOneSeparatorBetweenItsParts) {
  EXPECT_EQ(ExchangedPath("/mnt/a", {{"/mnt", "/x/"}}), "/x/a");
  EXPECT_EQ(ExchangedPath("/mnt/a", {{"/mnt", "/"}}), "/a");
  EXPECT_EQ(ExchangedPath("/a", {{"/", "/mnt"}}), "/mnt/a");
}

/// A workout with songs, and bytes that no record would have in the fields behind them.
Bytes SampleWorkout() {
  ExerciseSlots workout;
  workout[0].ExerciseName = "Squat";
  workout[0].NumberOfMusicFiles = 2;
  workout[0].MusicFile[0] = "/home/old/Grüße.mp3";
  workout[0].MusicFile[1] = "/mnt/b.mp3";
  workout[0].MusicFile[2] = "/home/old/unused.mp3";
  workout[51].NumberOfMusicFiles = 12;
  workout[51].MusicFile[11] = "/home/old/c.mp3";
  Bytes file = EncodeWorkout(workout);
  file[kExerciseRecordSize - 1] = 0x5A;
  file[kExerciseRecordSize - 300] = 0xFF;
  return file;
}

TEST(ExchangedWorkout, HasItsSongsInTheOtherFolder) {
  const ExerciseSlots workout = DecodeWorkout(Exchange(BackupKind::kWorkout, SampleWorkout()));
  EXPECT_EQ(workout[0].MusicFile[0].Text(), "/home/new/Grüße.mp3");
  EXPECT_EQ(workout[0].MusicFile[1].Text(), "/mnt/b.mp3");
  EXPECT_EQ(workout[51].MusicFile[11].Text(), "/home/new/c.mp3");
}

TEST(ExchangedWorkout, KeepsEveryOtherByte) {
  const Bytes before = SampleWorkout();
  Bytes after = Exchange(BackupKind::kVersion, before);
  ASSERT_EQ(after.size(), before.size());
  const std::size_t last = 51 * kExerciseRecordSize + 11 * kPathFieldSize;
  for (const std::size_t song : {std::size_t{0}, last}) {
    std::copy_n(before.begin() + static_cast<std::ptrdiff_t>(song), kPathFieldSize,
                after.begin() + static_cast<std::ptrdiff_t>(song));
  }
  EXPECT_TRUE(after == before);
}

TEST(ExchangedWorkout, MayBeTruncated) {
  Bytes file = SampleWorkout();
  file.resize(100);
  EXPECT_EQ(Exchange(BackupKind::kWorkout, file), file);
}

TEST(ExchangedWorkout, NamesPathsThatDoNotFit) {
  const std::string path = "/home/old/" + std::string(kPathFieldSize - 10, 'x');
  ExerciseSlots workout;
  workout[0].NumberOfMusicFiles = 1;
  workout[0].MusicFile[0] = path;
  const Bytes file = EncodeWorkout(workout);
  const auto result = ExchangePaths(BackupKind::kWorkout, file, {{"/home/old", "/home/longer"}});
  EXPECT_TRUE(result.content == file);
  EXPECT_THAT(result.tooLong, ElementsAre(path));
  EXPECT_THAT(ExchangePaths(BackupKind::kWorkout, file, kMoved).tooLong, IsEmpty());
}

TEST(ExchangedSettings, HaveBothPathsInTheOtherFolder) {
  SettingsRecord settings;
  settings.MusicPath = "/home/old/Music";
  settings.OutputPath = "/home/old";
  settings.AudioFormat = "14";
  SettingsRecord expected = settings;
  expected.MusicPath = "/home/new/Music";
  expected.OutputPath = "/home/new";
  EXPECT_EQ(Exchange(BackupKind::kSettings, EncodeSettings(settings)), EncodeSettings(expected));
}

TEST(ExchangedOptions, HaveThePlayerInTheOtherFolder) {
  const std::string file = "# mine\r\nplayer-mount-point = /home/old/player\nodd\n";
  const Bytes after = Exchange(BackupKind::kOptions, AsBytes(file));
  EXPECT_EQ(AsText(after), "# mine\r\nplayer-mount-point = /home/new/player\nodd\n");
}

TEST(ExchangedMusicList, HasEachLineInTheOtherFolder) {
  const std::string file = "/home/old/a.mp3\n/mnt/\xFF.mp3\r\n\n/home/old/\xFE.mp3\r\n/home/old/c";
  EXPECT_EQ(AsText(Exchange(BackupKind::kMusicList, AsBytes(file))),
            "/home/new/a.mp3\n/mnt/\xFF.mp3\r\n\n/home/new/\xFE.mp3\r\n/home/new/c");
}

TEST(ExchangedFiles, OfOtherKindsStay) {
  const std::string file = "/home/old/a.mp3\n";
  EXPECT_EQ(AsText(Exchange(BackupKind::kExerciseList, AsBytes(file))), file);
  EXPECT_EQ(AsText(Exchange(BackupKind::kClip, AsBytes(file))), file);
}

TEST(FoldersNamed, AreThoseOfSettingsAndSongs) {
  SettingsRecord settings;
  settings.MusicPath = "/home/old/Music/";
  settings.OutputPath = "/media/old/PLAYER";
  EXPECT_THAT(FoldersNamedIn(BackupKind::kSettings, EncodeSettings(settings)),
              ElementsAre("/home/old/Music", "/media/old/PLAYER"));
  EXPECT_THAT(FoldersNamedIn(BackupKind::kWorkout, SampleWorkout()),
              ElementsAre("/home/old", "/mnt"));
  EXPECT_THAT(FoldersNamedIn(BackupKind::kMusicList, AsBytes("/m/a/x.mp3\n/m/a/y.mp3\n\n")),
              ElementsAre("/m/a"));
  EXPECT_THAT(FoldersNamedIn(BackupKind::kSettings, {}), IsEmpty());
}

std::vector<PathExchange> Propose(const std::vector<std::string>& folders, const Homes& homes) {
  return ProposedExchanges(folders, homes,
                           [](const std::string& folder) { return folder.ends_with("here"); });
}

TEST(ProposedExchanges, LeadFromHomeToHome) {
  EXPECT_THAT(Propose({"/home/old/Music", "/home/old/here", "/home/older"},
                      {.there = "/home/old", .here = "/home/new"}),
              ElementsAre(PathExchange{"/home/old", "/home/new"}, PathExchange{"/home/older", ""}));
}

TEST(ProposedExchanges, LeadToDisksOfThePersonHere) {
  EXPECT_THAT(Propose({"/media/old/PLAYER", "/run/media/old/DISK/Music"},
                      {.there = "/home/old", .here = "/home/new"}),
              ElementsAre(PathExchange{"/media/old", "/media/new"},
                          PathExchange{"/run/media/old", "/run/media/new"}));
}

TEST(ProposedExchanges, AskForTheCommonFolderOfOthers) {
  EXPECT_THAT(Propose({"/srv/music/rock/loud", "/srv/music/rocky", "/srv/music/pop", "/data/x"},
                      {.there = "/home/me", .here = "/home/me"}),
              ElementsAre(PathExchange{"/data/x", ""}, PathExchange{"/srv/music", ""}));
}

TEST(ProposedExchanges, AskForNothingThatIsHere) {
  EXPECT_THAT(Propose({"/srv/here", "/home/old/here"}, {.there = "/home/old", .here = "/home/new"}),
              IsEmpty());
}

TEST(ProposedExchanges, AskForNoDiskThatIsNotConnected) {
  EXPECT_THAT(
      Propose({"/media/me/PLAYER", "/mnt/disk/Music"}, {.there = "/home/me", .here = "/home/me"}),
      IsEmpty());
}

TEST(ProposedExchanges, CanDoWithoutAHome) {
  EXPECT_THAT(Propose({"/home/old/Music"}, {.there = "", .here = "/home/new"}),
              ElementsAre(PathExchange{"/home/old/Music", ""}));
}

}  // namespace
}  // namespace repvolta
