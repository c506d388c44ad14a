#include <algorithm>
#include <cmath>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>

#include "base/FileNames.h"
#include "clips/ClipSound.h"
#include "clips/VoiceCheck.h"
#include "clips/VoiceLevel.h"
#include "clips/WordClips.h"
#include "sound/WavReader.h"
#include "voices/ChangeOfVoice.h"
#include "voices/KeptRecordings.h"
#include "voices/VoiceLevels.h"

#include "support/FailureOf.h"
#include "support/ProgramsBeside.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::IsEmpty;

ClipOrigin Own() { return {.owner = ClipOwner::kOwn}; }
ClipOrigin Spoken() { return {.owner = ClipOwner::kComputer}; }

Sound SoundOf(const std::string& file) { return ReadWav(GetFile(file)); }

double LoudnessOf(const std::vector<std::string>& files) {
  std::vector<Sound> sounds;
  for (const std::string& file : files) sounds.push_back(SoundOf("voice/" + file));
  return JoinedLoudness(sounds);
}

const std::vector<std::string> kWords = {"3.wav",         "10.wav",   "50.wav",  "for.wav",
                                         "kilograms.wav", "reps.wav", "sets.wav"};

/// A program directory with some of the clips that the build has spoken.
class LevelOfAVoice : public testing::Test {
 protected:
  LevelOfAVoice() {
    Bring(kWords);
    Bring({"exercise/Squat.WAV"});
    NoteAll({.owner = ClipOwner::kProgram});
  }

  static void Bring(const std::vector<std::string>& files) {
    for (const std::string& file : files) {
      for (const char* folder : {"program/", "voice/"}) {
        fs::create_directories(FolderOf(folder + file));
        fs::copy_file(ProgramBeside("../bin/voice/" + file), folder + file,
                      fs::copy_options::skip_existing);
      }
    }
  }

  /// As the program's list of brought files would say it.
  static void NoteAll(const ClipOrigin& origin) {
    ClipChange change;
    for (const auto& [file, content] : Content()) {
      if (file.starts_with("voice/")) {
        change.clips.push_back({file.substr(6), GetFile(file), origin});
      }
    }
    PutClips("", change);
  }

  /// A clip of a person, as loud as they are in the program, or changed by so much.
  static void PutOwn(const std::string& file, double difference, const ClipOrigin& origin = Own()) {
    const Bytes clip = GetFile(ProgramBeside("../bin/voice/exercise/Deadlift.WAV"));
    PutClips("", {.clips = {{file, LouderClip(clip, difference), origin}}});
  }

  static void Use(int level) { PutClips("", VoiceLevels("", Program()).ChangeTo(level)); }

  static ProgramVoice Program() { return ProgramVoice("program/"); }

  static std::map<std::string, std::string> Content() {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator("voice")) {
      if (entry.is_regular_file()) files[entry.path()] = GetTextFile(entry.path());
    }
    return files;
  }

  TemporaryFolder folder_;
};

TEST_F(LevelOfAVoice, IsThatOfTheJoinedInstruction) {
  Bring(WordClips());
  NoteAll({.owner = ClipOwner::kProgram});
  Use(-12);
  const std::vector<std::string> instruction = {
      "exercise/Squat.WAV", "3.wav",   "sets.wav", "50.wav",
      "kilograms.wav",      "for.wav", "10.wav",   "reps.wav"};
  EXPECT_NEAR(LoudnessOf(instruction), -12, 1);
  EXPECT_THAT(CheckVoice("voice").findings, IsEmpty());
  for (const auto& [file, content] : Content()) {
    EXPECT_LE(Peak(SoundOf(file)), kClipPeak + 1.0F / 32768) << file;
  }
}

TEST_F(LevelOfAVoice, IsTheSameOnWhicheverWayItIsReached) {
  Use(-10);
  Use(-16);
  const auto throughTheLoudest = Content();
  Use(-18);
  Use(-16);
  EXPECT_EQ(Content(), throughTheLoudest);
}

TEST_F(LevelOfAVoice, GoesBackToTheVeryBytes) {
  PutOwn("miles.wav", 0.3);
  PutOwn("exercise/My Way.WAV", -5, Spoken());
  const auto before = Content();
  Use(-12);
  EXPECT_NE(Content(), before);
  Use(-10);
  Use(-18);
  EXPECT_EQ(Content(), before);
  EXPECT_FALSE(fs::exists("voices/.originals/miles.wav"));
  EXPECT_FALSE(fs::exists("voices/.originals/exercise/My Way.WAV"));
}

TEST_F(LevelOfAVoice, GoesBackForNamesThatDifferInCaseOnly) {
  PutOwn("exercise/My Way.WAV", -5);
  fs::copy_file("program/exercise/Squat.WAV", "voice/exercise/MY WAY.wav");
  const auto before = Content();
  Use(-12);
  Use(-10);
  Use(-18);
  EXPECT_EQ(Content(), before);
}

TEST_F(LevelOfAVoice, GoesBackForAClipWhoseNameGotAnotherCase) {
  PutOwn("exercise/My Way.WAV", -5);
  const std::string before = GetTextFile("voice/exercise/My Way.WAV");
  Use(-12);
  fs::rename("voice/exercise/My Way.WAV", "voice/exercise/MY WAY.wav");
  Use(-10);
  Use(-18);
  EXPECT_EQ(GetTextFile("voice/exercise/MY WAY.wav"), before);
  EXPECT_FALSE(fs::exists("voices/.originals/exercise/My Way.WAV"));
}

TEST_F(LevelOfAVoice, GoesBackWithoutTheProgramsClips) {
  fs::remove_all("program");
  const auto before = Content();
  PutClips("", VoiceLevels("", ProgramVoice("")).ChangeTo(-12));
  EXPECT_NEAR(LoudnessOf({"3.wav", "sets.wav", "10.wav", "reps.wav"}), -12, 1);
  PutClips("", VoiceLevels("", ProgramVoice("")).ChangeTo(-18));
  EXPECT_EQ(Content(), before);
}

TEST_F(LevelOfAVoice, ChangesNothingWhenItIsThatAlready) {
  Use(-12);
  EXPECT_THAT(VoiceLevels("", Program()).ChangeTo(-12).clips, IsEmpty());
  EXPECT_THAT(VoiceLevels("", Program()).ChangeTo(-14).clips, testing::Not(IsEmpty()));
}

TEST_F(LevelOfAVoice, KeepsWhoseTheClipsAre) {
  PutOwn("miles.wav", 0.3);
  Use(-12);
  const ClipOrigins origins("");
  EXPECT_EQ(origins.Of("miles.wav", GetFile("voice/miles.wav")).owner, ClipOwner::kOwn);
  EXPECT_EQ(origins.Of("sets.wav", GetFile("voice/sets.wav")).owner, ClipOwner::kProgram);
}

TEST_F(LevelOfAVoice, BringsWhatAnEngineHasSpokenToItOutright) {
  PutOwn("exercise/My Way.WAV", -6, Spoken());
  Use(-12);
  EXPECT_NEAR(LoudnessOf({"exercise/My Way.WAV"}), -12, 0.5);
  PutOwn("exercise/Spoken Later.WAV", -6, Spoken());
  Use(-12);
  EXPECT_NEAR(LoudnessOf({"exercise/Spoken Later.WAV"}), -12, 0.5);
}

TEST_F(LevelOfAVoice, BringsDownWhatWasRecordedAtAHigherOne) {
  Use(-12);
  PutOwn("miles.wav", 6);
  const double recorded = LoudnessOf({"miles.wav"});
  Use(-18);
  EXPECT_NEAR(LoudnessOf({"miles.wav"}), recorded - 6, 0.3);
  Use(-12);
  EXPECT_NEAR(LoudnessOf({"miles.wav"}), recorded, 0.05);
}

TEST_F(LevelOfAVoice, TakesAClipThatWasReplacedForANewOne) {
  PutOwn("miles.wav", 0.3);
  Use(-12);
  PutOwn("miles.wav", 5.5);
  const std::string recorded = GetTextFile("voice/miles.wav");
  Use(-14);
  Use(-12);
  EXPECT_EQ(GetTextFile("voice/miles.wav"), recorded);
}

TEST_F(LevelOfAVoice, IsAsMadeForAnotherVoice) {
  Use(-12);
  EXPECT_EQ(VoiceLevels("", Program()).Chosen(), -12);
  fs::remove_all("voice");
  fs::copy("program", "voice", fs::copy_options::recursive);
  EXPECT_EQ(VoiceLevels("", Program()).Chosen(), -18);
}

TEST_F(LevelOfAVoice, IsReachedByAQuieterVoice) {
  for (const std::string& word : kWords) {
    const Bytes quiet = LouderClip(GetFile("program/" + word), -7);
    PutFile("voice/" + word, std::string(quiet.begin(), quiet.end()));
  }
  NoteAll(Own());
  const auto before = Content();
  Use(-14);
  EXPECT_NEAR(LoudnessOf({"3.wav", "sets.wav", "10.wav", "reps.wav"}), -14, 1);
  Use(-18);
  EXPECT_EQ(Content(), before);
}

TEST_F(LevelOfAVoice, LeavesWhatIsNoClipAlone) {
  PutFile("voice/exercise/Odd \"$x\".WAV", "no sound");
  PutFile("voice/exercise/Squat.txt", "a note");
  Use(-12);
  EXPECT_EQ(GetTextFile("voice/exercise/Odd \"$x\".WAV"), "no sound");
  EXPECT_EQ(GetTextFile("voice/exercise/Squat.txt"), "a note");
}

TEST_F(LevelOfAVoice, ReportsItsProgressAndCanBeStopped) {
  std::size_t last = 0;
  VoiceLevels("", Program()).ChangeTo(-12, [&](std::size_t done, std::size_t all) {
    EXPECT_EQ(done, ++last);
    EXPECT_EQ(all, kWords.size() + 1);
  });
  EXPECT_EQ(last, kWords.size() + 1);
  const auto stop = [](std::size_t, std::size_t) { throw 1; };
  EXPECT_THROW(VoiceLevels("", Program()).ChangeTo(-12, stop), int);
}

TEST_F(LevelOfAVoice, SurvivesADamagedFile) {
  PutFile("voices/level.txt", "level\tloud\nlevel\t-3\n?\t?\t?\t?\nx\n\n");
  EXPECT_EQ(VoiceLevels("", Program()).Chosen(), -18);
}

TEST_F(LevelOfAVoice, CanBeHeardButNotChangedWhileItsNotesCannotBeRead) {
  for (const std::string notes : {"voices/level.txt", "voices/origins.txt"}) {
    fs::remove(notes);
    fs::create_directories(notes + "/kept");
    const VoiceLevels levels("", Program());
    const std::string why = notes + " could not be read: It is not a file";
    ASSERT_TRUE(levels.Fault()) << notes;
    EXPECT_EQ(levels.Fault()->what(), why);
    EXPECT_TRUE(levels.ClipAt("reps.wav", -12));
    EXPECT_EQ(FailureOf([&] { levels.ChangeTo(-12); }),
              "voice/ could not be changed: " + why + ". Nothing was changed");
    fs::remove_all(notes);
  }
}

TEST_F(LevelOfAVoice, IgnoresDamagedLinesThatLeadElsewhere) {
  PutFile("voices/level.txt", "level\t-18\nx\t-18\tas-made\t\nx\t-18\tas-made\t../../lost.txt\n");
  PutFile("lost.txt", "here");
  Use(-12);
  EXPECT_EQ(VoiceLevels("", Program()).Chosen(), -12);
  EXPECT_EQ(GetTextFile("lost.txt"), "here");
}

TEST_F(LevelOfAVoice, IsTakenFromARecordingThatIsKept) {
  PutOwn("reps.wav", 0.3);
  const Bytes recorded = GetFile("voice/reps.wav");
  Use(-12);
  ClipChange back{.clips = {*Program().ClipFor("reps.wav", -12)}};
  KeepRecordings("", back);
  PutClips("", back);
  EXPECT_EQ(GetFile("voices/My recordings/reps.wav"), recorded);
}

TEST_F(LevelOfAVoice, IsTakenFromARecordingWhoseVoiceIsChosen) {
  PutOwn("reps.wav", 0.3);
  const Bytes recorded = GetFile("voice/reps.wav");
  PutFile("voices/My recordings/10.wav", GetTextFile("program/10.wav"));
  Use(-12);
  const VoicesHere here{.programVoice = "program/", .inUse = ""};
  PutClips("",
           PlanChangeOfVoice(here, {.voice = kKeptRecordings, .day = {}, .loudness = {}}).change);
  EXPECT_EQ(GetFile("voice/reps.wav"), recorded);
}

TEST_F(LevelOfAVoice, IsThatOfAVoiceForWhatTheProgramLends) {
  for (const char* word : {"3.wav", "10.wav"}) {
    const Bytes loud = LouderClip(GetFile(std::string("program/") + word), 6);
    PutFile(std::string("voices/Kim/") + word, std::string(loud.begin(), loud.end()));
  }
  const double lent = LoudnessOf({"reps.wav"});
  const VoicesHere here{.programVoice = "program/", .inUse = ""};
  PutClips("", PlanChangeOfVoice(here, {.voice = "Kim", .day = {}, .loudness = {}}).change);
  EXPECT_NEAR(LoudnessOf({"reps.wav"}), lent + 6, 1);
}

TEST_F(LevelOfAVoice, OfOneClipIsWhatUsingItMakes) {
  const auto preview = VoiceLevels("", Program()).ClipAt("reps.wav", -12);
  Use(-12);
  EXPECT_EQ(preview, GetFile("voice/reps.wav"));
  EXPECT_FALSE(VoiceLevels("", Program()).ClipAt("none.wav", -12));
}

}  // namespace
}  // namespace repvolta
