#include <gmock/gmock.h>
#include <stdexcept>

#include "base/FileError.h"
#include "editing/MusicAddition.h"

#include "support/ProgramFixture.h"
#include "support/SongBytes.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

/// The workout in memory has one exercise.
class Addition : public ProgramFixture {
 protected:
  Addition() { AddExercise("Squat"); }

  ExerciseRecord& Exercise() { return state.Workout[0]; }

  std::string Song(const std::string& name, int seconds) {
    PutFile(name, SongBytes(seconds));
    return folder.Path() + name;
  }

  /// Songs of a second each, named "01.mp3" and so on.
  std::vector<std::string> Songs(int count) {
    std::vector<std::string> songs;
    for (int i = 1; i <= count; ++i) {
      songs.push_back(Song((i < 10 ? "0" : "") + std::to_string(i) + ".mp3", 1));
    }
    return songs;
  }

  MusicAddition Add(const std::vector<std::string>& songs) {
    return AddFoundMusic(state, {.songs = songs, .noMusic = {}, .failures = {}});
  }
};

TEST_F(Addition, StoresPathsTimesAndTotal) {
  const std::string first = Song("a.mp3", 100);
  const std::string second = Song("b.mp3", 20);
  EXPECT_EQ(Add({first, second}),
            (MusicAddition{.added = {first, second}, .noRoom = {}, .noMusic = {}, .failures = {}}));
  EXPECT_EQ(Exercise().NumberOfMusicFiles, 2);
  EXPECT_EQ(Exercise().MusicFile[1].Text(), second);
  EXPECT_EQ(Exercise().MusicFilePlayTime[0], 100);
  EXPECT_EQ(Exercise().TotalMusicTime, 120);
}

TEST_F(Addition, FillsTheListUpToTenSongs) {
  const std::vector<std::string> songs = Songs(12);
  Add({songs[0]});
  const MusicAddition addition = Add(songs);
  EXPECT_EQ(addition.added, std::vector(songs.begin(), songs.begin() + 9));
  EXPECT_EQ(addition.noRoom, std::vector(songs.begin() + 9, songs.end()));
  EXPECT_EQ(Exercise().NumberOfMusicFiles, 10);
}

TEST_F(Addition, AddsASongAgainThatTheListHas) {
  const std::string song = Song("a.mp3", 3);
  Add({song});
  EXPECT_THAT(Add({song}).added, ElementsAre(song));
  EXPECT_EQ(Exercise().TotalMusicTime, 6);
}

TEST_F(Addition, LeavesOutASongThatIsGoneAndGoesOn) {
  const std::string song = Song("b.mp3", 5);
  const MusicAddition addition = Add({"/nowhere/a.mp3", song});
  EXPECT_THAT(addition.added, ElementsAre(song));
  EXPECT_THAT(addition.failures, ElementsAre(AllOf(StartsWith("/nowhere/a.mp3 "),
                                                   EndsWith("No such file or directory"))));
  EXPECT_EQ(Exercise().MusicFile[0].Text(), song);
  EXPECT_EQ(Exercise().TotalMusicTime, 5);
}

TEST_F(Addition, LeavesOutAPathThatWouldBeCut) {
  const std::string longest(250, 'x');
  const MusicAddition addition = Add({"/" + longest + "/a.mp3"});
  EXPECT_THAT(addition.failures, ElementsAre(StartsWith("a.mp3: The path cannot be kept")));
  EXPECT_EQ(Exercise(), [] {
    ExerciseRecord empty;
    empty.ExerciseName = "Squat";
    return empty;
  }());
}

TEST_F(Addition, SaysThatANameIsNotUtf8) {
  const MusicAddition addition = Add({Song("caf\xE9.mp3", 1)});
  EXPECT_THAT(addition.failures, ElementsAre(HasSubstr("is not UTF-8")));
}

TEST_F(Addition, LeavesOutASongWhoseTimeDoesNotFit) {
  Exercise().NumberOfMusicFiles = 1;
  Exercise().MusicFilePlayTime[0] = 32766;
  const std::string fits = Song("b.mp3", 1);
  const MusicAddition addition = Add({Song("a.mp3", 2), fits});
  EXPECT_THAT(addition.added, ElementsAre(fits));
  EXPECT_THAT(addition.failures, ElementsAre("a.mp3: The number is too large"));
}

TEST_F(Addition, KeepsWhatTheSearchTold) {
  const FoundMusic found{.songs = {}, .noMusic = {"/a.jpg"}, .failures = {"/b could not be read"}};
  EXPECT_EQ(
      AddFoundMusic(state, found),
      (MusicAddition{
          .added = {}, .noRoom = {}, .noMusic = {"/a.jpg"}, .failures = {"/b could not be read"}}));
}

TEST_F(Addition, OfOneSongThrowsAndLeavesTheExercise) {
  const ExerciseRecord before = Exercise();
  EXPECT_THROW(AddMusicFile(state, "/nowhere/a.mp3"), FileError);
  EXPECT_EQ(Exercise(), before);
}

TEST(NotAdded, IsNothingWhenAllWasAdded) {
  EXPECT_EQ(NotAddedText({.added = {"/a.mp3"}, .noRoom = {}, .noMusic = {}, .failures = {}}), "");
}

TEST(NotAdded, NamesEverythingInItsGroup) {
  EXPECT_EQ(NotAddedText({.added = {"/m/a.mp3", "/m/b.mp3"},
                          .noRoom = {"/m/c.mp3"},
                          .noMusic = {"/m/cover.jpg", "/m/Scans/"},
                          .failures = {"/m/d.mp3 could not be opened: Permission denied"}}),
            "2 songs were added."
            "\r\r1 song did not fit, because an exercise has 10 at most:\rc.mp3"
            "\r\r2 are no MP3 file, or a folder without one:\rcover.jpg\rScans/"
            "\r\r1 could not be read or kept:\r/m/d.mp3 could not be opened: Permission denied");
}

TEST(NotAdded, SaysWhenNothingWasAdded) {
  EXPECT_EQ(NotAddedText({.added = {}, .noRoom = {}, .noMusic = {"/a"}, .failures = {}}),
            "0 songs were added.\r\r1 is no MP3 file, or a folder without one:\ra");
}

TEST(NotAdded, CutsLongLists) {
  const std::vector<std::string> seven = {"/1", "/2", "/3", "/4", "/5", "/6", "/7"};
  EXPECT_EQ(NotAddedText({.added = {"/0"}, .noRoom = seven, .noMusic = {}, .failures = {}}),
            "1 song was added.\r\r7 songs did not fit, because an exercise has 10 at most:"
            "\r1\r2\r3\r4\r5\rand 2 more");
}

TEST(NotAdded, CutsLongNamesBetweenCharacters) {
  const std::string text = NotAddedText({.added = {},
                                         .noRoom = {},
                                         .noMusic = {"/m/x" + std::string(59, 'y') + "ä.mp3"},
                                         .failures = {}});
  EXPECT_THAT(text, EndsWith(":\rx" + std::string(59, 'y') + "..."));
}

TEST(NotAdded, ShowsALineBreakInANameAsAQuestionMark) {
  EXPECT_THAT(NotAddedText({.added = {},
                            .noRoom = {},
                            .noMusic = {"/a\rb\nc"},
                            .failures = {"/d\re could not be read"}}),
              AllOf(HasSubstr("\ra?b?c\r"), HasSubstr("\r/d?e could")));
}

}  // namespace
}  // namespace repvolta
