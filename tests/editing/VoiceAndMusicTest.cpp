#include <QCoreApplication>
#include <QEventLoop>
#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/FileError.h"
#include "clips/ClipSound.h"
#include "editing/VoiceAndMusic.h"
#include "sound/WavReader.h"
#include "update/UpdateLock.h"

#include "fakes/FakeSound.h"
#include "support/EditorFixture.h"
#include "support/SongFiles.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Optional;
using testing::SizeIs;

SongLoudness Loud(const std::string& path, double loudness) {
  return {.path = path, .loudness = loudness};
}

SongLoudness Unknown(const std::string& path) {
  return {.path = path, .failure = "It is no MP3 file"};
}

TEST(SongRows, SayHowLoudASongIsOrWhyThatIsNotKnown) {
  const std::vector<SongLoudness> songs = {Loud("/music/A - B.mp3", -9.34), Loud("/c.mp3", -10.96),
                                           Unknown("/music/Bad.mp3")};
  EXPECT_THAT(SongRows(songs),
              ElementsAre(SongRow{"A - B.mp3", "-9.3 LUFS"}, SongRow{"c.mp3", "-11.0 LUFS"},
                          SongRow{"Bad.mp3", "It is no MP3 file"}));
}

TEST(SongSummary, CountsWhileSongsAreMeasured) {
  EXPECT_EQ(SongSummary({.songs = {Loud("a", -9)}, .all = 12, .isMeasuring = true}),
            "Song 2 of 12 is being measured ...");
}

TEST(SongSummary, RecommendsALevel) {
  EXPECT_EQ(SongSummary({.songs = {Loud("a", -9), Loud("b", -12)}, .all = 2}),
            "2 songs measured, the louder ones at -12.0 LUFS. Recommended for the voice: -15 "
            "LUFS, 3 dB louder than as made.");
  EXPECT_EQ(SongSummary({.songs = {Loud("a", -20), Unknown("b")}, .all = 2}),
            "1 song measured, at -20.0 LUFS. Recommended for the voice: as made "
            "(-18 LUFS). 1 song could not be measured.");
}

TEST(SongSummary, SaysWhatIsMissing) {
  EXPECT_EQ(SongSummary({}),
            "There are no songs to measure: the workout has none, and there is no list of random "
            "music. Choose the level by ear.");
  EXPECT_EQ(SongSummary({.songs = {Unknown("a")}, .all = 1}),
            "No song could be measured, so choose the level by ear.");
  EXPECT_EQ(SongSummary({.songs = {}, .all = 3}),
            "Stopped. No song could be measured, so choose the level by ear.");
}

TEST(LevelText, SaysHowMuchLouderTheVoiceIs) {
  EXPECT_EQ(LevelText(-18), "as made (-18 LUFS)");
  EXPECT_EQ(LevelText(-12), "-12 LUFS, 6 dB louder than as made");
}

TEST(UseNotice, SaysWhatWasChanged) {
  EXPECT_EQ(
      UseNotice(8, -12),
      "8 recordings were changed. The voice is now at -12 LUFS, 6 dB louder than as made; the "
      "next update uses it.");
  EXPECT_EQ(
      UseNotice(1, -18),
      "1 recording was changed. The voice is now as made (-18 LUFS); the next update uses it.");
  EXPECT_EQ(UseNotice(0, -18), "All recordings have this level already: as made (-18 LUFS).");
}

TEST(NextLevel, LeavesOutWhatIsHardlyLouderThanAsMade) {
  EXPECT_EQ(NextLevel(-18, -17), -16);
  EXPECT_EQ(NextLevel(-16, -17), -18);
  EXPECT_EQ(NextLevel(-18, -12), -12);
  EXPECT_EQ(NextLevel(-12, -18), -18);
  EXPECT_EQ(NextLevel(-12, -3), -10);
  EXPECT_EQ(NextLevel(-12, -40), -18);
}

TEST(TypicalSong, IsTheOneWhoseLoudnessIsRecommendedFor) {
  EXPECT_THAT(TypicalSong(std::vector{Loud("a", -9), Unknown("b"), Loud("c", -14), Loud("d", -12)}),
              Optional(3));
  EXPECT_FALSE(TypicalSong(std::vector{Unknown("a")}));
}

/// A voice of some words; the workout has an exercise "Squat" with a recording.
class VoiceAndMusicWork : public EditorFixture {
 protected:
  VoiceAndMusicWork() {
    for (const char* word : {"3", "sets", "50", "kilograms", "for", "10", "reps"}) {
      PutToneClip(std::string("voice/") + word + ".wav", 0.18F);
    }
    PutToneClip("voice/exercise/Squat.WAV", 0.18F);
    AddNewExercise("Squat");
  }

  void AddSongs(const std::vector<std::string>& songs) {
    ExerciseRecord& exercise = state.Workout[0];
    for (const std::string& song : songs) {
      exercise.MusicFile[exercise.NumberOfMusicFiles++] = folder.Path() + song;
    }
  }

  VoiceAndMusic& Open() {
    work = std::make_unique<VoiceAndMusic>(services, [] {});
    return *work;
  }

  void MeasureAll() {
    work->Measure();
    while (work->Progress().isMeasuring) Wait();
  }

  static void Wait() { QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents); }

  Sound Played() { return ReadWav(player.played.at(0)); }

  static double LoudnessOf(const std::string& file) {
    return JoinedLoudness(std::vector<Sound>{ReadWav(GetFile(file))});
  }

  FakeSoundPlayer player;
  FakeBackgroundSpeech backgroundSpeech;
  VoiceServices services{
      .editor = editor, .player = player, .speech = backgroundSpeech, .output = [] {
        return ChosenOutput{1, "Headphones"};
      }};
  std::unique_ptr<VoiceAndMusic> work;
};

TEST_F(VoiceAndMusicWork, MeasuresTheSongsOfTheWorkout) {
  PutSteadySong("loud.mp3");
  PutFile("bad.mp3", "no music");
  AddSongs({"loud.mp3", "bad.mp3", "gone.mp3"});
  Open();
  MeasureAll();
  const std::vector<SongRow> rows = SongRows(work->Progress().songs);
  ASSERT_THAT(rows, SizeIs(3));
  EXPECT_THAT(rows[0].loudness, HasSubstr(" LUFS"));
  EXPECT_EQ(rows[1], (SongRow{"bad.mp3", "It is no MP3 file"}));
  EXPECT_EQ(rows[2], (SongRow{"gone.mp3", "It could not be read: No such file or directory"}));
  EXPECT_THAT(RecommendedLevel(work->Progress().songs), Optional(-10));
}

TEST_F(VoiceAndMusicWork, KeepsWhatItHasMeasured) {
  PutSteadySong("loud.mp3");
  AddSongs({"loud.mp3"});
  Open();
  MeasureAll();
  const FileStamp stamp = *StampOf("loud.mp3");
  EXPECT_EQ(KnownSongs(folder.Path()).Of(folder.Path() + "loud.mp3", stamp).has_value(), true);
}

TEST_F(VoiceAndMusicWork, HasNothingToMeasureWithoutSongs) {
  Open().Measure();
  EXPECT_FALSE(work->Progress().isMeasuring);
  EXPECT_THAT(work->Progress().songs, IsEmpty());
}

TEST_F(VoiceAndMusicWork, StopsInTheMiddle) {
  PutFile("bad.mp3", "no music");
  AddSongs({"bad.mp3", "bad2.mp3"});
  Open().Measure();
  while (work->Progress().songs.empty()) Wait();
  work->StopMeasuring();
  QCoreApplication::processEvents();
  EXPECT_THAT(work->Progress().songs, SizeIs(1));
  EXPECT_THAT(SongSummary(work->Progress()), HasSubstr("Stopped."));
}

TEST_F(VoiceAndMusicWork, PlaysASongThenTheInstructionAtTheLevel) {
  PutSteadySong("loud.mp3");
  AddSongs({"loud.mp3"});
  Open();
  MeasureAll();
  work->Listen(-12, 0);
  EXPECT_TRUE(work->IsListening());
  while (player.played.empty()) Wait();
  Sound sound = Played();
  EXPECT_EQ(sound.rate, 44100U);
  const auto music = static_cast<std::size_t>(6.3 * 44100);
  ASSERT_GT(sound.samples.size(), music + 100000);
  sound.samples.erase(sound.samples.begin(), sound.samples.begin() + music);
  EXPECT_NEAR(JoinedLoudness(std::vector{ConvertRate(sound, 16000)}), -12, 1);
  EXPECT_THAT(player.outputs, ElementsAre("Headphones"));
  EXPECT_EQ(work->Notice(), "The voice is heard at -12 LUFS, 6 dB louder than as made.");
  player.End();
  EXPECT_FALSE(work->IsListening());
  EXPECT_EQ(work->Notice(), "");
}

TEST_F(VoiceAndMusicWork, PlaysTheInstructionAloneWithoutASong) {
  Open().Listen(-16, std::nullopt);
  ASSERT_THAT(player.played, SizeIs(1));
  EXPECT_EQ(Played().rate, 16000U);
  EXPECT_EQ(Played().samples.size(), 8 * 8000U);
  EXPECT_NEAR(JoinedLoudness(std::vector{Played()}), -16, 1);
}

TEST_F(VoiceAndMusicWork, SaysWhyASongCannotBeHeard) {
  PutSteadySong("loud.mp3");
  AddSongs({"loud.mp3"});
  Open();
  MeasureAll();
  PutFile("loud.mp3", "no music any more");
  work->Listen(-12, 0);
  while (work->IsListening()) Wait();
  EXPECT_EQ(work->Notice(), "\"loud.mp3\" cannot be heard. It is no MP3 file.");
  EXPECT_THAT(player.played, IsEmpty());
}

TEST_F(VoiceAndMusicWork, IsQuietWhenNothingCanBePlayed) {
  player.refusal = "This computer has no audio output.";
  EXPECT_THROW(Open().Listen(-12, std::nullopt), SoundError);
  EXPECT_FALSE(work->IsListening());
}

TEST_F(VoiceAndMusicWork, SaysThatThereAreNoClips) {
  std::filesystem::remove_all("voice");
  EXPECT_THROW(Open().Listen(-12, std::nullopt), SoundError);
  EXPECT_FALSE(work->IsListening());
}

TEST_F(VoiceAndMusicWork, BringsAllClipsToTheLevelAndBack) {
  const std::string before = GetTextFile("voice/reps.wav");
  Open().Use(-12);
  EXPECT_NEAR(LoudnessOf("voice/reps.wav"), -12, 1);
  EXPECT_NEAR(LoudnessOf("voice/exercise/Squat.WAV"), -12, 1);
  EXPECT_EQ(work->Chosen(), -12);
  EXPECT_EQ(work->Notice(), UseNotice(8, -12));
  work->Use(-12);
  EXPECT_EQ(work->Notice(), UseNotice(0, -12));
  work->Use(-18);
  EXPECT_EQ(GetTextFile("voice/reps.wav"), before);
}

TEST_F(VoiceAndMusicWork, ChangesNothingWhenThePersonStopsIt) {
  const std::string before = GetTextFile("voice/3.wav");
  for (const int share : {25, 50, 75, 100}) {
    dialogs.stopAt = share;
    Open().Use(-12);
    EXPECT_EQ(GetTextFile("voice/3.wav"), before) << share;
    EXPECT_EQ(work->Notice(), "Stopped. No recording was changed.") << share;
    EXPECT_FALSE(std::filesystem::exists("restore.pending")) << share;
  }
  EXPECT_EQ(work->Notice(), "Stopped. No recording was changed.");
  EXPECT_EQ(work->Chosen(), -18);
}

TEST_F(VoiceAndMusicWork, ChangesNothingWhileAnUpdateRuns) {
  const UpdateLock lock(folder.Path());
  const std::string before = GetTextFile("voice/3.wav");
  EXPECT_THROW(Open().Use(-12), FileError);
  EXPECT_EQ(GetTextFile("voice/3.wav"), before);
  EXPECT_EQ(work->Chosen(), -18);
}

TEST_F(VoiceAndMusicWork, LeavesTheSongsAlone) {
  PutSteadySong("loud.mp3");
  AddSongs({"loud.mp3"});
  const std::string before = GetTextFile("loud.mp3");
  Open();
  MeasureAll();
  work->Use(-12);
  EXPECT_EQ(GetTextFile("loud.mp3"), before);
}

}  // namespace
}  // namespace repvolta
