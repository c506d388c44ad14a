#include <cmath>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <locale>
#include <sstream>

#include "mp3/MiddleFrames.h"
#include "platform/QtChildProcesses.h"
#include "voices/SongLoudness.h"
#include "voices/SongSound.h"

#include "support/SongFiles.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Optional;

class MeasuredSong : public testing::Test {
 protected:
  SongLoudness Measure(const std::string& path) {
    return MeasureSong(processes_, "lame", path, known_);
  }

  TemporaryFolder folder_;
  QtChildProcesses processes_;
  KnownSongs known_;
};

/// What the loudness filter of another program says, with one channel on both ears.
double JudgedLoudness(const std::string& song) {
  const ProgramRun run =
      RunProgram("ffmpeg", {"-hide_banner", "-nostats", "-i", song, "-af",
                            "ebur128=framelog=verbose:dualmono=true", "-f", "null", "-"});
  const std::size_t at = run.errors.rfind("I: ");
  std::istringstream number(at == std::string::npos ? "" : run.errors.substr(at + 2));
  number.imbue(std::locale::classic());
  double loudness = 0;
  number >> loudness;
  return loudness;
}

TEST_F(MeasuredSong, IsAsLoudAsAnotherProgramSays) {
  PutSteadySong("loud.mp3");
  PutSong("quiet.mp3", NoiseOf({{6, 0.1F}}), 2, {"-f", "-V", "4"});
  for (const std::string song : {"loud.mp3", "quiet.mp3"}) {
    ASSERT_THAT(Measure(song).failure, IsEmpty());
    EXPECT_NEAR(*Measure(song).loudness, JudgedLoudness(song), 0.5) << song;
  }
}

TEST_F(MeasuredSong, InOneChannelIsAsLoudAsInTwo) {
  PutSong("one.mp3", NoiseOf({{6, 1}}), 1, {"-f", "-m", "m", "-b", "64"});
  EXPECT_NEAR(*Measure("one.mp3").loudness, JudgedLoudness("one.mp3"), 0.5);
}

TEST_F(MeasuredSong, MayHaveALowRate) {
  PutSong("low.mp3", NoiseOf({{6, 1}}, 16000), 1, {"-f", "-b", "32"});
  EXPECT_NEAR(*Measure("low.mp3").loudness, JudgedLoudness("low.mp3"), 0.5);
}

TEST_F(MeasuredSong, IsAsLoudAsItsMiddle) {
  PutSong("long.mp3", NoiseOf({{15, 0.05F}, {26, 0.5F}, {15, 0.05F}}), 2, {"-f", "-b", "64"});
  PutSong("middle.mp3", NoiseOf({{6, 0.5F}}), 2, {"-f", "-b", "64"});
  EXPECT_NEAR(*Measure("long.mp3").loudness, *Measure("middle.mp3").loudness, 0.5);
}

TEST_F(MeasuredSong, IsReadPastItsTag) {
  PutSteadySong("plain.mp3");
  PutFile("tagged.mp3", std::string("ID3\3\0\0\1\x7F\x7F\x7F", 10) + std::string(4194303, '\xFF') +
                            GetTextFile("plain.mp3"));
  EXPECT_NEAR(*Measure("tagged.mp3").loudness, *Measure("plain.mp3").loudness, 0.2);
}

TEST_F(MeasuredSong, IsNotMistakenForItsTag) {
  PutSteadySong("plain.mp3");
  PutFile("tagged.mp3", std::string("ID3\3\0\0\x7F\x7F\x7F\x7F", 10) + GetTextFile("plain.mp3"));
  EXPECT_EQ(Measure("tagged.mp3").failure, "It is no MP3 file");
}

TEST_F(MeasuredSong, CanHaveAnyName) {
  PutSteadySong("-- Motörhead \"$(x)\".mp3");
  EXPECT_TRUE(Measure("-- Motörhead \"$(x)\".mp3").loudness);
}

TEST_F(MeasuredSong, OfSilenceIsLeftOut) {
  PutSong("silent.mp3", Sound{44100, std::vector<float>(88200)});
  EXPECT_EQ(Measure("silent.mp3").failure, "It has only silence");
  EXPECT_FALSE(Measure("silent.mp3").loudness);
}

TEST_F(MeasuredSong, ThatCannotBeReadIsLeftOut) {
  EXPECT_EQ(Measure("gone.mp3").failure, "It could not be read: No such file or directory");
  PutFile("text.mp3", "not music");
  EXPECT_EQ(Measure("text.mp3").failure, "It is no MP3 file");
  PutFile("empty.mp3", "");
  EXPECT_EQ(Measure("empty.mp3").failure, "It is no MP3 file");
}

TEST_F(MeasuredSong, NeedsADecoder) {
  PutSteadySong("song.mp3");
  EXPECT_EQ(MeasureSong(processes_, "./lame.exe", "song.mp3", known_).failure,
            "There is no decoder: the program lame is missing");
  EXPECT_EQ(MeasureSong(processes_, "false", "song.mp3", known_).failure,
            "It could not be decoded");
}

/// Ends each program at its limit.
class HangingProcesses : public ChildProcesses {
 public:
  ChildResult Run(const ChildCommand& command) override {
    EXPECT_TRUE(command.limit);
    return {.end = ChildEnd::kKilledAtLimit, .exitCode = 0, .output = {}};
  }
};

TEST_F(MeasuredSong, DoesNotWaitForADecoderThatHangs) {
  PutSteadySong("song.mp3");
  HangingProcesses hanging;
  EXPECT_EQ(MeasureSong(hanging, "lame", "song.mp3", known_).failure, "Its decoding took too long");
}

TEST_F(MeasuredSong, IsKnownUntilItChanges) {
  PutSteadySong("song.mp3");
  SongLoudness song = Measure("song.mp3");
  song.loudness = -1;
  known_.Add(song);
  EXPECT_THAT(Measure("song.mp3").loudness, Optional(-1));
  PutSteadySong("song.mp3", 0.5F);
  EXPECT_LT(*Measure("song.mp3").loudness, -5);
}

TEST(KnownSongs, AreKept) {
  TemporaryFolder folder;
  PutFile("odd\tname.mp3", "song");
  const FileStamp stamp = *StampOf("odd\tname.mp3");
  KnownSongs known;
  known.Add({.path = "odd\tname.mp3", .loudness = -11.25, .stamp = stamp});
  known.Save("");
  EXPECT_THAT(KnownSongs("").Of("odd\tname.mp3", stamp), Optional(-11.25));
  EXPECT_FALSE(KnownSongs("").Of("other.mp3", stamp));
}

TEST(KnownSongs, SurviveAFileOfOtherThings) {
  TemporaryFolder folder;
  PutFile("voices/songs.txt", "?\nx\ty\tz\n-9\t1:2.3\n-9.00\t1:2.3\tsong.mp3\n");
  EXPECT_THAT(KnownSongs("").Of("song.mp3", {.size = 1, .seconds = 2, .nanoseconds = 3}),
              Optional(-9));
}

TEST(KnownSongs, DropTheOldestOfALot) {
  TemporaryFolder folder;
  KnownSongs known;
  for (int i = 0; i < 501; ++i) {
    known.Add({.path = std::to_string(i), .loudness = -9, .stamp = FileStamp{}});
  }
  known.Save("");
  EXPECT_FALSE(KnownSongs("").Of("0", {}));
  EXPECT_TRUE(KnownSongs("").Of("1", {}));
  EXPECT_TRUE(KnownSongs("").Of("500", {}));
}

ProgramState WorkoutWith(const std::vector<std::vector<std::string>>& exercises) {
  ProgramState state;
  for (const auto& songs : exercises) {
    ExerciseRecord& exercise = state.Workout[state.NumberOfExercises++];
    for (const std::string& song : songs) {
      exercise.MusicFile[exercise.NumberOfMusicFiles++] = song;
    }
  }
  return state;
}

TEST(SongsToMeasure, AreThoseOfTheWorkoutThenThoseOfTheList) {
  TemporaryFolder folder;
  PutFile("musiclist.txt", "/c.mp3\n/d.mp3\n/a.mp3\n/e.mp3\n");
  const ProgramState state = WorkoutWith({{"/a.mp3", "/b.mp3"}, {}, {"/b.mp3", "/c.mp3"}});
  EXPECT_THAT(SongsToMeasure(state, 12),
              ElementsAre("/a.mp3", "/b.mp3", "/c.mp3", "/d.mp3", "/e.mp3"));
  EXPECT_THAT(SongsToMeasure(state, 2), ElementsAre("/a.mp3", "/b.mp3"));
}

TEST(SongsToMeasure, AreSpreadOverTheList) {
  TemporaryFolder folder;
  std::string list;
  for (int i = 0; i < 100; ++i) list += "/" + std::to_string(i) + ".mp3\n";
  PutFile("musiclist.txt", list);
  EXPECT_THAT(SongsToMeasure(ProgramState(), 4),
              ElementsAre("/0.mp3", "/25.mp3", "/50.mp3", "/75.mp3"));
}

TEST(SongsToMeasure, AreNoneWithoutMusic) {
  TemporaryFolder folder;
  EXPECT_THAT(SongsToMeasure(ProgramState(), 12), IsEmpty());
}

std::vector<SongLoudness> Songs(const std::vector<double>& loudness) {
  std::vector<SongLoudness> songs;
  for (const double one : loudness) songs.push_back({.path = "song", .loudness = one});
  return songs;
}

TEST(RecommendedLevel, IsThatOfTheLouderSongsForOneChannelOnBothEars) {
  EXPECT_THAT(RecommendedLevel(Songs({-9})), Optional(-12));
  EXPECT_THAT(RecommendedLevel(Songs({-12, -14, -9, -13, -11})), Optional(-14));
}

TEST(RecommendedLevel, IsNotMovedByOneLoudSong) {
  EXPECT_THAT(RecommendedLevel(Songs({-12, -12, -12, -12, -5})), Optional(-15));
}

TEST(RecommendedLevel, LiesBetweenTheLimits) {
  EXPECT_THAT(RecommendedLevel(Songs({-4})), Optional(-10));
  EXPECT_THAT(RecommendedLevel(Songs({-13.4})), Optional(-16));
  EXPECT_THAT(RecommendedLevel(Songs({-14.4})), Optional(-16));
  EXPECT_THAT(RecommendedLevel(Songs({-15})), Optional(-18));
  EXPECT_THAT(RecommendedLevel(Songs({-23})), Optional(-18));
}

TEST(RecommendedLevel, IsNoneWithoutASongThatWasMeasured) {
  EXPECT_FALSE(RecommendedLevel({}));
  EXPECT_FALSE(RecommendedLevel(std::vector<SongLoudness>{{.path = "song", .failure = "No"}}));
}

}  // namespace
}  // namespace repvolta
