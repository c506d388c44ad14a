#include <filesystem>

#include "app/Options.h"
#include "app/RecordFormat.h"
#include "base/ProgramFiles.h"
#include "clips/ClipLists.h"
#include "clips/ClipSound.h"
#include "clips/WordClips.h"
#include "editing/TakeInVoice.h"
#include "editing/VoiceTexts.h"
#include "editing/Voices.h"
#include "editing/WriteOutVoice.h"
#include "sound/WavReader.h"
#include "update/UpdateLock.h"
#include "voices/WriteVoice.h"

#include "fakes/FakeSound.h"
#include "support/EditorFixture.h"
#include "support/FailureOf.h"
#include "support/RunProgram.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

/// A tone of a fifth of a second.
Bytes Tone(float amplitude, std::uint32_t rate = kClipFormat.rate) {
  Sound sound{.rate = rate, .samples = {}};
  for (std::uint32_t i = 0; i < rate / 5; ++i) {
    sound.samples.push_back(i % 40 < 20 ? amplitude : -amplitude);
  }
  return EncodeWav(sound, {.rate = rate, .bits = 16, .channels = 1});
}

/// The program's clips of all words are in use; "new/" holds those of another voice.
class VoiceCommands : public EditorFixture {
 protected:
  VoiceCommands() {
    for (const std::string& word : WordClips()) {
      PutFile("program/" + word, Tone(0.2F));
      PutFile("voice/" + word, Tone(0.2F));
    }
    PutFile("new/300.wav", Tone(0.21F));
    PutFile("new/exercise/Squat.wav", Tone(0.22F));
    PutFile("new/notes.txt", "notes");
  }

  /// Takes in "new/" under a name.
  std::string TakeIn(const std::string& name) {
    dialogs.answers = {"new", name, "OK"};
    return TakeInVoiceFolder(services);
  }

  bool Asked(const std::string& part) const {
    return std::ranges::any_of(dialogs.asked, [&](const std::string& text) {
      return text.find(part) != std::string::npos;
    });
  }

  static std::vector<std::string> LeftInVoices() {
    std::vector<std::string> names;
    if (!fs::exists("voices")) return names;
    for (const auto& entry : fs::directory_iterator("voices")) {
      names.push_back(entry.path().filename().string());
    }
    std::ranges::sort(names);
    return names;
  }

  FakeSoundPlayer player;
  FakeBackgroundSpeech backgroundSpeech;
  VoiceServices services{.editor = editor,
                         .player = player,
                         .speech = backgroundSpeech,
                         .output = [] { return ChosenOutput{.entry = 1, .name = "Speakers"}; },
                         .programVoice = "program/"};
};

TEST_F(VoiceCommands, TakeInAFolderAndSayWhatIsMissingAndLeftOut) {
  EXPECT_EQ(TakeIn("Kim"), "Kim");
  EXPECT_EQ(GetFile("voices/Kim/300.wav"), Tone(0.21F));
  EXPECT_EQ(GetFile("voices/Kim/exercise/Squat.WAV"), Tone(0.22F));
  EXPECT_THAT(LeftInVoices(), ElementsAre("Kim"));
  EXPECT_TRUE(Asked("\"Kim\" has 1 word and 1 name of exercises."));
  EXPECT_TRUE(Asked("The program's voice speaks what it lacks: 1, 2, 3,"));
  EXPECT_TRUE(Asked("Left out:\rnotes.txt"));
}

TEST_F(VoiceCommands, OfferTheNameOfTheFolderOrFile) {
  TakeIn("Kim");
  EXPECT_TRUE(Asked("ask|Take In a Voice|What is the voice called?|new"));
}

TEST_F(VoiceCommands, AskAgainForANameThatIsTaken) {
  TakeIn("Kim");
  dialogs.answers = {"new", "KIM", "Sam", "OK"};
  EXPECT_EQ(TakeInVoiceFolder(services), "Sam");
  EXPECT_TRUE(Asked("There is a voice of this name already."));
}

TEST_F(VoiceCommands, KeepNothingWhenThePersonCancels) {
  for (const std::deque<std::string>& answers :
       {std::deque<std::string>{""}, {"new", ""}, {"new", "Kim", ""}}) {
    dialogs.answers = answers;
    EXPECT_EQ(TakeInVoiceFolder(services), "");
    EXPECT_THAT(LeftInVoices(), IsEmpty());
  }
}

TEST_F(VoiceCommands, KeepNothingWhenTheWorkIsStopped) {
  dialogs.answers = {"new", "Kim", "OK"};
  dialogs.stopAt = 1;
  EXPECT_EQ(TakeInVoiceFolder(services), "");
  EXPECT_THAT(LeftInVoices(), IsEmpty());
}

TEST_F(VoiceCommands, MakeClipsOfSoundsInOtherFormatsWhenThePersonWants) {
  PutFile("new/400.wav", Tone(0.5F, 44100));
  dialogs.answers = {"new", "Make clips of them", "Kim", "OK"};
  TakeInVoiceFolder(services);
  EXPECT_TRUE(Asked("choose|Take In a Voice|1 file of another format than clips:"));
  EXPECT_EQ(CheckVoice("voices/Kim").words, 2U);
  dialogs.answers = {"new", "Leave them out", "Sam", "OK"};
  TakeInVoiceFolder(services);
  EXPECT_EQ(CheckVoice("voices/Sam").words, 1U);
  EXPECT_TRUE(Asked("400.wav has another format"));
}

TEST_F(VoiceCommands, LeaveOutWhatIsNoSound) {
  PutFile("new/400.wav", "no sound");
  TakeIn("Kim");
  EXPECT_TRUE(Asked("400.wav cannot be used: It is no WAV file"));
  EXPECT_FALSE(fs::exists("voices/Kim/400.wav"));
}

TEST_F(VoiceCommands, UseAVoice) {
  TakeIn("Kim");
  EXPECT_TRUE(UseVoice(services, "Kim"));
  EXPECT_EQ(GetFile("voice/300.wav"), Tone(0.21F));
  EXPECT_EQ(GetFile("voice/400.wav"), Tone(0.2F));
  EXPECT_EQ(VoicesOf(services).inUse, "Kim");
  EXPECT_THAT(GetTextFile("options.conf"), HasSubstr("voice-in-use = Kim\n"));
}

TEST_F(VoiceCommands, UseAVoiceAndKeepWhatAnUpdateChangesInTheOptionsMeanwhile) {
  TakeIn("Kim");
  dialogs.whenWorkEnds = [&] {
    dialogs.whenWorkEnds = {};
    PutFile("options.conf", "player-mount-point = /media/player\n");
  };
  UseVoice(services, "Kim");
  EXPECT_EQ(GetTextFile("options.conf"),
            "player-mount-point = /media/player\nvoice-in-use = Kim\n");
}

TEST_F(VoiceCommands, UseAVoiceAndKeepAllOtherOptions) {
  PutFile("options.conf", "later = 1\n");
  LoadOptions(state);
  TakeIn("Kim");
  PutFile("options.conf", "later = 2\n# mine\n");
  UseVoice(services, "Kim");
  EXPECT_EQ(GetTextFile("options.conf"), "later = 2\n# mine\nvoice-in-use = Kim\n");
  UseVoice(services, "");
  EXPECT_EQ(VoicesOf(services).inUse, "");
}

TEST_F(VoiceCommands, SayWhatWasKept) {
  TakeIn("Kim");
  PutFile("voice/exercise/Hop.WAV", Tone(0.3F));
  UseVoice(services, "Kim");
  EXPECT_EQ(dialogs.asked.back(),
            "message|Use a Voice|1 recording was kept in the voice \"My recordings\".");
}

TEST_F(VoiceCommands, UseNoVoiceWhileAnUpdateRuns) {
  TakeIn("Kim");
  const UpdateLock update(state.ProgramDirectory);
  EXPECT_NE(FailureOf([&] { UseVoice(services, "Kim"); }), "");
  EXPECT_EQ(GetFile("voice/300.wav"), Tone(0.2F));
  EXPECT_EQ(VoicesOf(services).inUse, "");
}

/// "Kim" has all words, and each is quieter than the program's by 14 dB.
class QuietVoice : public VoiceCommands {
 protected:
  QuietVoice() {
    for (const std::string& word : WordClips()) PutFile("voices/Kim/" + word, Tone(0.04F));
  }
};

TEST_F(QuietVoice, StaysQuietWhenThePersonWants) {
  dialogs.answers = {"Leave its clips as they are"};
  EXPECT_TRUE(UseVoice(services, "Kim"));
  EXPECT_EQ(dialogs.asked.back(), "work|Putting the clips in place ...");
  EXPECT_EQ(dialogs.asked.at(1),
            "choose|Use a Voice|Kim is quieter than the clips in use by 14 dB.");
  EXPECT_EQ(GetFile("voice/1.wav"), Tone(0.04F));
}

TEST_F(QuietVoice, BecomesAsLoudAsTheOthersWhenThePersonWants) {
  dialogs.answers = {"Make them as loud as the clips in use"};
  UseVoice(services, "Kim");
  EXPECT_NEAR(Peak(ReadWav(GetFile("voice/1.wav"))), 0.2F, 0.01F);
  EXPECT_EQ(GetFile("voices/Kim/1.wav"), Tone(0.04F));
  dialogs.asked.clear();
  UseVoice(services, "");
  EXPECT_THAT(dialogs.asked,
              ElementsAre("work|Comparing the voices ...", "work|Putting the clips in place ..."));
}

TEST_F(QuietVoice, IsNotUsedWhenThePersonCancels) {
  dialogs.answers = {""};
  EXPECT_FALSE(UseVoice(services, "Kim"));
  EXPECT_EQ(GetFile("voice/1.wav"), Tone(0.2F));
}

TEST_F(VoiceCommands, RenameAVoice) {
  TakeIn("Kim");
  dialogs.answers = {" Sam "};
  EXPECT_EQ(RenameVoiceAsked(services, "Kim"), "Sam");
  EXPECT_THAT(LeftInVoices(), ElementsAre("Sam"));
  dialogs.answers = {"a/b"};
  EXPECT_EQ(RenameVoiceAsked(services, "Sam"), "Sam");
  EXPECT_THAT(dialogs.asked.back(), StartsWith("message|Rename a Voice|"));
}

TEST_F(VoiceCommands, RemoveAVoiceOnlyWhenThePersonIsSure) {
  TakeIn("Kim");
  dialogs.answers = {"", "OK"};
  EXPECT_FALSE(RemoveVoiceAsked(services, "Kim"));
  EXPECT_THAT(LeftInVoices(), ElementsAre("Kim"));
  EXPECT_TRUE(RemoveVoiceAsked(services, "Kim"));
  EXPECT_THAT(LeftInVoices(), IsEmpty());
  EXPECT_TRUE(Asked("Remove the voice \"Kim\"?\rIts 2 clips will be deleted from\r"));
}

TEST_F(VoiceCommands, NeitherRenameNorRemoveWhatAnotherWindowUsesNow) {
  TakeIn("Kim");
  UseVoice(services, "Kim");
  EXPECT_EQ(RenameVoiceAsked(services, "Kim"), "Kim");
  EXPECT_FALSE(RemoveVoiceAsked(services, "Kim"));
  EXPECT_EQ(dialogs.asked.back(), "message|Remove a Voice|\"Kim\" is in use now.");
  EXPECT_THAT(LeftInVoices(), ElementsAre("Kim", "origins.txt"));
}

TEST_F(VoiceCommands, CheckAVoice) {
  TakeIn("Kim");
  const std::vector<std::string> lines = CheckOfVoice(services, "Kim");
  EXPECT_THAT(lines.front(), HasSubstr("1 word and 1 name"));
  EXPECT_EQ(lines.at(1), "1.wav is missing");
  EXPECT_THAT(CheckOfVoice(services, "").front(), HasSubstr("all is well."));
}

TEST_F(VoiceCommands, PlayASentence) {
  TakeIn("Kim");
  ListenToVoice(services, "Kim", {});
  ASSERT_EQ(player.played.size(), 1U);
  EXPECT_EQ(ReadWav(player.played.front()).samples.size(), 7 * ReadWav(Tone(0.2F)).samples.size());
  EXPECT_EQ(player.outputs.front(), "Speakers");
  EXPECT_FALSE(fs::exists(player.files.front()));
}

TEST_F(VoiceCommands, WriteAVoiceIntoAZipFile) {
  TakeIn("Kim");
  const std::string file = folder.Path() + "out.zip";
  dialogs.answers = {"Its own clips, 2 clips, as a ZIP file", "OK", file};
  WriteOutVoice(services, "Kim");
  EXPECT_TRUE(Asked("save|Write Out a Voice|Kim.zip"));
  EXPECT_EQ(dialogs.asked.back(), "message|Write Out a Voice|" + file + " holds 2 clips.");
  dialogs.answers = {file, "Back", "OK"};
  EXPECT_EQ(TakeInVoiceArchive(services), "Back");
  EXPECT_EQ(RunProgram("diff", {"-r", "voices/Kim", "voices/Back"}).status, 0);
}

TEST_F(VoiceCommands, WriteAVoiceIntoANewFolder) {
  TakeIn("Kim");
  fs::create_directories("out/Kim");
  const std::string all = "All clips, with those of the program, " +
                          std::to_string(WordClips().size() + 1) + " clips, as a folder";
  dialogs.answers = {all, "OK", folder.Path() + "out"};
  WriteOutVoice(services, "Kim");
  EXPECT_TRUE(fs::is_empty("out/Kim"));
  EXPECT_EQ(CheckVoice("out/Kim 2").words, WordClips().size());
}

TEST_F(VoiceCommands, WriteNothingWhenThePersonIsNotSureOfFaults) {
  TakeIn("Kim");
  dialogs.answers = {"Its own clips, 2 clips, as a ZIP file", ""};
  WriteOutVoice(services, "Kim");
  EXPECT_TRUE(Asked("1.wav is missing"));
  EXPECT_FALSE(fs::exists("Kim.zip"));
}

TEST_F(VoiceCommands, WriteTheProgramsVoice) {
  TakeIn("Kim");
  UseVoice(services, "Kim");
  const std::string all = "All clips, with those of the program, " +
                          std::to_string(WordClips().size()) + " clips, as a ZIP file";
  dialogs.answers = {all, folder.Path() + "p.zip"};
  WriteOutVoice(services, "");
  EXPECT_TRUE(fs::exists("p.zip"));
}

TEST_F(VoiceCommands, ListTheVoices) {
  TakeIn("Kim");
  UseVoice(services, "Kim");
  const std::vector<VoiceRow> rows = ListVoiceRows(VoicesOf(services));
  ASSERT_EQ(rows.size(), 2U);
  const std::string all = std::to_string(WordClips().size());
  EXPECT_THAT(CellsOf(rows[0]), ElementsAre("The program's voice", "", all + " of " + all, "0"));
  EXPECT_THAT(CellsOf(rows[1]), ElementsAre("Kim", "in use", "1 of " + all, "1"));
  EXPECT_THAT(AboutVoice(rows[0]),
              ElementsAre("It has all words.", "It has no names of exercises."));
  EXPECT_THAT(AboutVoice(rows[1]).front(), StartsWith("It lacks "));
}

}  // namespace
}  // namespace repvolta
