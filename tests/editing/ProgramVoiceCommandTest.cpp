#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/ClipOrigins.h"
#include "clips/VoiceLevel.h"
#include "editing/ProgramVoiceCommand.h"
#include "keeping/PendingRestore.h"
#include "sound/WavReader.h"

#include "fakes/FakeSound.h"
#include "support/EditorFixture.h"
#include "support/FailureOf.h"
#include "support/ToneClip.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char* kWords[] = {"1.wav", "2.wav", "3.wav", "4.wav", "5.wav", "6.wav"};

/// The program's own voice has six words and "Squat". In the program directory are the same words,
/// own recordings of "6.wav" and "Squat", and the name "OHP", of unknown origin.
class ProgramVoiceCommand : public EditorFixture {
 protected:
  ProgramVoiceCommand() {
    for (const char* word : kWords) PutBoth(word, 0.1F);
    PutBoth("exercise/Squat.WAV", 0.09F);
    PutOwn("6.wav");
    PutOwn("exercise/squat.wav");
    fs::remove("voice/exercise/Squat.WAV");
    PutFile("voice/exercise/OHP.WAV", AsText(ToneClip(0.04F)));
  }

  static void PutBoth(const std::string& file, float level) {
    for (const char* folder : {"program-voice/", "voice/"}) {
      PutFile(folder + file, AsText(ToneClip(level)));
    }
  }

  static void PutOwn(const std::string& file) {
    PutFile("voice/" + file, AsText(ToneClip(0.11F)));
    NoteClipOrigin(file, {.owner = ClipOwner::kOwn});
  }

  bool GoBack(const std::vector<std::string>& clips) {
    dialogs.asked.clear();
    return BackToProgramVoice(services, clips);
  }

  /// The boxes.
  std::vector<std::string> Said() const {
    std::vector<std::string> said = dialogs.asked;
    std::erase_if(said, [](const std::string& box) { return box.starts_with("work|"); });
    return said;
  }

  static Bytes ProgramsOwn(const std::string& file) { return GetFile("program-voice/" + file); }

  FakeSoundPlayer player;
  FakeBackgroundSpeech backgroundSpeech;
  VoiceServices services{.editor = editor,
                         .player = player,
                         .speech = backgroundSpeech,
                         .output = [] { return ChosenOutput{}; },
                         .programVoice = folder.Path() + "program-voice/"};
};

TEST_F(ProgramVoiceCommand, BringsBackAWordAndKeepsTheRecording) {
  EXPECT_TRUE(GoBack({"6.wav"}));
  EXPECT_EQ(GetFile("voice/6.wav"), ProgramsOwn("6.wav"));
  EXPECT_EQ(ClipOrigins("").Of("6.wav", ProgramsOwn("6.wav")).owner, ClipOwner::kProgram);
  EXPECT_EQ(GetFile("voices/My recordings/6.wav"), ToneClip(0.11F));
  EXPECT_THAT(Said(),
              ElementsAre("message|Back to the Program's Voice|1 clip is the program's again.\r\r1 "
                          "recording of yours is kept as a clip of the voice \"My recordings\"."));
}

TEST_F(ProgramVoiceCommand, BringsBackANameInItsPlace) {
  EXPECT_TRUE(GoBack({"exercise/squat.wav"}));
  EXPECT_EQ(GetFile("voice/exercise/squat.wav"), ProgramsOwn("exercise/Squat.WAV"));
  EXPECT_FALSE(fs::exists("voice/exercise/Squat.WAV"));
}

TEST_F(ProgramVoiceCommand, BringsBackAClipThatIsMissing) {
  fs::remove("voice/3.wav");
  EXPECT_TRUE(GoBack({"3.wav"}));
  EXPECT_EQ(GetFile("voice/3.wav"), ProgramsOwn("3.wav"));
}

TEST_F(ProgramVoiceCommand, BringsBackAllAsLoudAsTheVoiceInUse) {
  for (const char* word : kWords) PutFile(std::string("voice/") + word, AsText(ToneClip(0.4F)));
  EXPECT_TRUE(GoBack({"exercise/squat.wav"}));
  const Sound squat = ReadWav(GetFile("voice/exercise/squat.wav"));
  EXPECT_NEAR(JoinedLoudness(std::span(&squat, 1)), LoudnessOfVoice("voice/"), 1.5);
}

TEST_F(ProgramVoiceCommand, LeavesWhatIsTheProgramsAlready) {
  EXPECT_FALSE(GoBack({"1.wav", "2.wav"}));
  EXPECT_THAT(Said(), ElementsAre(HasSubstr("is the program's voice already")));
}

TEST_F(ProgramVoiceCommand, RemovesANameThatTheProgramHasNoClipOf) {
  dialogs.answers = {"OK"};
  EXPECT_TRUE(GoBack({"exercise/OHP.WAV"}));
  EXPECT_FALSE(fs::exists("voice/exercise/OHP.WAV"));
  EXPECT_EQ(GetFile("voices/My recordings/exercise/OHP.WAV"), ToneClip(0.04F));
  EXPECT_THAT(
      Said(),
      ElementsAre(HasSubstr("The program has no clip of this name: OHP.\r\rRemove its clip"),
                  HasSubstr("1 name is spoken anew by the next update.")));
}

TEST_F(ProgramVoiceCommand, KeepsNoClipThatTheComputerSpoke) {
  NoteClipOrigin("exercise/OHP.WAV", {.owner = ClipOwner::kComputer, .text = "OHP"});
  dialogs.answers = {"OK"};
  EXPECT_TRUE(GoBack({"exercise/OHP.WAV"}));
  EXPECT_FALSE(fs::exists("voices/My recordings"));
}

TEST_F(ProgramVoiceCommand, LeavesTheNameWhenThePersonWantsItSo) {
  dialogs.answers = {"Cancel"};
  EXPECT_FALSE(GoBack({"exercise/OHP.WAV"}));
  EXPECT_TRUE(fs::exists("voice/exercise/OHP.WAV"));
}

TEST_F(ProgramVoiceCommand, BringsBackTheOthersAllTheSame) {
  dialogs.answers = {"Cancel"};
  EXPECT_TRUE(GoBack({"6.wav", "exercise/squat.wav", "exercise/OHP.WAV"}));
  EXPECT_TRUE(fs::exists("voice/exercise/OHP.WAV"));
  EXPECT_EQ(GetFile("voice/6.wav"), ProgramsOwn("6.wav"));
  EXPECT_THAT(Said().back(), HasSubstr("2 clips are the program's again.\r\r2 recordings of "
                                       "yours are kept"));
}

TEST_F(ProgramVoiceCommand, ChangesNothingWhenItIsStopped) {
  dialogs.stopAt = 0;
  EXPECT_FALSE(GoBack({"6.wav"}));
  EXPECT_EQ(GetFile("voice/6.wav"), ToneClip(0.11F));
}

TEST_F(ProgramVoiceCommand, ChangesNothingWithoutTheProgramsOwnClips) {
  services.programVoice.clear();
  EXPECT_THROW(GoBack({"6.wav"}), std::runtime_error);
  EXPECT_EQ(GetFile("voice/6.wav"), ToneClip(0.11F));
}

TEST_F(ProgramVoiceCommand, IsFinishedLaterWhenTheClipsCannotBePutInPlace) {
  fs::remove("voice/3.wav");
  fs::create_directories("restore.pending/files");
  PutFile("restore.pending/journal.txt", "Repvolta restore 9\n");
  EXPECT_THROW(GoBack({"3.wav"}), FileError);
  EXPECT_TRUE(state.RestoreIsPending);
}

}  // namespace
}  // namespace repvolta
