#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "app/BroughtFiles.h"
#include "backup/BackupRestore.h"
#include "backup/WriteBackup.h"
#include "clips/ClipSound.h"
#include "clips/VoiceCheck.h"
#include "clips/VoiceLevel.h"
#include "sound/WavReader.h"
#include "voices/ChangeOfVoice.h"
#include "voices/KeptRecordings.h"
#include "voices/VoiceLevels.h"

#include "support/ProgramsBeside.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

constexpr int kAsMade = -18;
const std::vector<std::string> kClips = {"3.wav",   "exercise/Squat.WAV", "sets.wav", "10.wav",
                                         "for.wav", "kilograms.wav",      "reps.wav"};

/// A person's recording. Each has a length of its own, by which it is known at any level.
struct Recording {
  Bytes content;
  bool isOfRaisedVoice = false;
};

std::size_t LengthOf(const Bytes& clip) { return ReadWav(clip).samples.size(); }

/// All clips of one file, in use, in whole voices and among the originals.
std::vector<Bytes> AllOf(const std::string& file) {
  std::vector<Bytes> clips;
  if (fs::exists("voice/" + file)) clips.push_back(GetFile("voice/" + file));
  for (const auto& folder : fs::directory_iterator("voices")) {
    const std::string path = folder.path().string() + "/" + file;
    if (fs::exists(path)) clips.push_back(GetFile(path));
  }
  return clips;
}

bool IsKept(const std::string& file, const Recording& recording) {
  return std::ranges::any_of(AllOf(file), [&](const Bytes& clip) {
    return recording.isOfRaisedVoice ? LengthOf(clip) == LengthOf(recording.content)
                                     : clip == recording.content;
  });
}

/// A program directory with some of the clips that the build has spoken, and the voice of Kim.
class VoiceInterplay : public testing::Test {
 protected:
  VoiceInterplay() {
    for (const std::string& clip : kClips) {
      PutFile("program/" + clip, GetFile(ProgramBeside("../bin/voice/" + clip)));
    }
    Enter("there");
    for (const char* clip : {"3.wav", "sets.wav", "exercise/Row.WAV"}) {
      PutFile(std::string("voices/Kim/") + clip, Sounding(2));
    }
  }

  /// Makes this the program directory, at first with the program's voice.
  static void Enter(const std::string& directory) {
    fs::create_directory(directory);
    fs::current_path(directory);
    std::string brought;
    for (const std::string& clip : kClips) {
      const Bytes content = GetFile("../program/" + clip);
      PutFile("voice/" + clip, content);
      brought += ChecksumOf(content) + "  voice/" + clip + "\n";
    }
    PutFile("brought.sha256", brought);
  }

  static void BackUp() { WriteBackup("../backup.zip", OriginHere("", 45000)); }

  static void Restore() {
    BackupRestore restore("../backup.zip");
    RestoreStage stage("");
    static_cast<void>(restore.Stage({}, stage));
    stage.Commit();
    FinishRestore("");
  }

  /// All clips in use.
  static std::map<std::string, Bytes> Voice() {
    std::map<std::string, Bytes> clips;
    for (const std::string& clip : ClipsIn("voice/")) clips[clip] = GetFile("voice/" + clip);
    return clips;
  }

  /// Another one with each call, as loud as a recording at the level in use.
  Bytes Sounding(double louder) {
    Sound sound = ReadWav(GetFile(ProgramBeside("../bin/voice/exercise/Deadlift.WAV")));
    sound.samples.resize(sound.samples.size() - ++made_);
    return LouderClip(EncodeWav(sound, kClipFormat), louder);
  }

  static ProgramVoice Program() { return ProgramVoice("../program/"); }

  static void Raise(int level) { PutClips("", VoiceLevels("", Program()).ChangeTo(level)); }

  /// The person replaces what was recorded of the word before.
  Bytes Record(const std::string& clip) {
    const int level = VoiceLevels("", Program()).Chosen();
    const Recording recording{Sounding(level - kAsMade), level != kAsMade};
    PutClips("", {.clips = {{clip, recording.content, {.owner = ClipOwner::kOwn}}}});
    inUse_[clip] = recording;
    return recording.content;
  }

  void BackToTheProgram(const std::vector<std::string>& clips) {
    ClipChange change;
    ProgramVoice program = Program();
    const double loudness = LoudnessOfVoice("voice/");
    for (const std::string& clip : clips) {
      auto next = program.ClipFor(clip, loudness);
      ASSERT_TRUE(next);
      if (GetFile("voice/" + clip) != next->content) change.clips.push_back(std::move(*next));
    }
    KeepRecordings("", change);
    PutClips("", change);
    for (const std::string& clip : clips) SetAside(clip);
  }

  /// Recordings in use go to the voice for which they were made.
  void Use(const std::string& voice) {
    const ChangeOfVoice plan =
        PlanChangeOfVoice(here_, {.voice = voice, .day = "2026-11-22", .loudness = {}});
    PutClips("", plan.change);
    for (const std::string& clip : kClips) {
      if (here_.inUse.empty()) SetAside(clip);
    }
    // A newer recording of a word takes the place of the voice's older one.
    for (auto& [clip, recording] : std::exchange(inUse_, {})) ofKim_[clip] = std::move(recording);
    here_.inUse = voice;
  }

  void ExpectAllKept() {
    for (const auto& [clip, recording] : inUse_) EXPECT_TRUE(IsKept(clip, recording)) << clip;
    for (const auto& [clip, recording] : ofKim_) EXPECT_TRUE(IsKept(clip, recording)) << clip;
    for (const auto& [clip, recording] : aside_) EXPECT_TRUE(IsKept(clip, recording)) << clip;
  }

  static void ExpectTheProgramsVoice() {
    for (const std::string& clip : kClips) {
      EXPECT_TRUE(GetFile("voice/" + clip) == GetFile("../program/" + clip)) << clip;
    }
    for (const ClipFinding& finding : CheckVoice("voice").findings) {
      EXPECT_EQ(std::ranges::count(kClips, finding.file), 0) << finding.file;
    }
  }

  void Walk(std::uint32_t seed, int steps) {
    std::minstd_rand random(seed);
    const auto one = [&](std::size_t of) { return random() % of; };
    constexpr int kLevels[] = {-12, -14, kAsMade};
    for (int i = 0; i < steps; ++i) {
      // A few clips, so that what happens to one of them adds up.
      const std::string& clip = kClips[one(3)];
      switch (one(8)) {
        case 0:
        case 1:
          Raise(kLevels[one(std::size(kLevels))]);
          break;
        case 2:
        case 3:
          static_cast<void>(Record(clip));
          break;
        case 4:
        case 5:
          BackToTheProgram({clip});
          break;
        case 6:
          Use("Kim");
          break;
        default:
          Use("");
          break;
      }
      ExpectAllKept();
      if (HasFailure()) FAIL() << "seed " << seed << ", step " << i;
    }
  }

  TemporaryFolder folder_;
  VoicesHere here_{.programVoice = "../program/", .inUse = ""};

 private:
  void SetAside(const std::string& clip) {
    const auto recording = inUse_.find(clip);
    if (recording == inUse_.end()) return;
    aside_.emplace_back(clip, std::move(recording->second));
    inUse_.erase(recording);
  }

  std::size_t made_ = 0;
  std::map<std::string, Recording> inUse_;
  std::map<std::string, Recording> ofKim_;
  std::vector<std::pair<std::string, Recording>> aside_;
};

TEST_F(VoiceInterplay, LeadsBackByWhateverWay) {
  for (std::uint32_t seed = 1; seed <= 3; ++seed) {
    Walk(seed, 30);
    if (HasFailure()) return;
    Raise(kAsMade);
    Use("");
    BackToTheProgram(kClips);
    ExpectTheProgramsVoice();
    ExpectAllKept();
  }
}

TEST_F(VoiceInterplay, KeepsARecordingOfARaisedVoiceAsItWasMade) {
  const Bytes recorded = Record("reps.wav");
  Raise(-12);
  BackToTheProgram({"reps.wav"});
  EXPECT_TRUE(GetFile("voices/My recordings/reps.wav") == recorded);
}

TEST_F(VoiceInterplay, BringsARaisedVoiceBackElsewhere) {
  const Bytes recorded = Record("reps.wav");
  Raise(-12);
  static_cast<void>(Record("exercise/Row.WAV"));
  const auto raised = Voice();
  BackUp();
  Raise(kAsMade);
  const auto asMade = Voice();
  Enter("../here");
  Restore();
  EXPECT_TRUE(Voice() == raised);
  EXPECT_EQ(VoiceLevels("", Program()).Chosen(), -12);
  Raise(kAsMade);
  EXPECT_TRUE(Voice() == asMade);
  EXPECT_TRUE(GetFile("voice/reps.wav") == recorded);
}

TEST_F(VoiceInterplay, KeepsTheOriginalsOfClipsThatARestoreLeaves) {
  static_cast<void>(Record("reps.wav"));
  Raise(-12);
  BackUp();
  Enter("../here");
  const Bytes recorded = Record("exercise/Row.WAV");
  Raise(-12);
  Restore();
  Raise(-14);
  Raise(kAsMade);
  EXPECT_TRUE(GetFile("voice/exercise/Row.WAV") == recorded);
}

TEST_F(VoiceInterplay, RaisesARecordingThatARestoreBringsAsItWasMade) {
  const Bytes recorded = Record("reps.wav");
  BackUp();
  Raise(-12);
  const Bytes raised = GetFile("voice/reps.wav");
  Restore();
  EXPECT_TRUE(GetFile("voice/reps.wav") == recorded);
  Raise(-12);
  EXPECT_TRUE(GetFile("voice/reps.wav") == raised);
  Raise(kAsMade);
  EXPECT_TRUE(GetFile("voice/reps.wav") == recorded);
}

}  // namespace
}  // namespace repvolta
