#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "voices/VoiceClips.h"
#include "voices/WholeVoices.h"

#include "support/FailureOf.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class WholeVoices : public testing::Test {
 protected:
  TemporaryFolder folder_;
};

TEST_F(WholeVoices, AreTheFoldersThatCanBeVoices) {
  EXPECT_THAT(ListVoices(), IsEmpty());
  for (const char* name : {"Kim", "anna", ".taken in"})
    fs::create_directories("voices/" + std::string(name));
  PutFile("voices/origins.txt", "");
  EXPECT_THAT(ListVoices(), ElementsAre("anna", "Kim"));
}

TEST_F(WholeVoices, HaveNamesThatAFolderCanHaveOnEveryDisk) {
  for (const char* name :
       {"..", ".Kim", "Kim.", " Kim", "Kim ", "a/b", "a\\b", "a:b", "a\nb", "a\"b", "\xFF"}) {
    EXPECT_THAT(WhyNoVoiceName(name), HasSubstr("that of a folder")) << name;
  }
  EXPECT_EQ(WhyNoVoiceName("J\u00FCrgen's 2nd voice"), "");
  EXPECT_EQ(WhyNoVoiceName(std::string(100, 'x')), "");
  EXPECT_NE(WhyNoVoiceName(std::string(101, 'x')), "");
  EXPECT_EQ(WhyNoVoiceName(""), "A voice needs a name.");
}

TEST_F(WholeVoices, HaveNoNameThatIsTaken) {
  fs::create_directories("voices/Kim");
  EXPECT_EQ(WhyNoVoiceName("KIM"), "There is a voice of this name already.");
  EXPECT_EQ(WhyNoVoiceName("KIM", "Kim"), "");
  EXPECT_EQ(WhyNoVoiceName("the program's VOICE"), "The program uses this name itself.");
  for (const char* name : {"Origins.txt", "songs.TXT"}) {
    EXPECT_EQ(WhyNoVoiceName(name), "The program uses this name itself.");
  }
}

TEST_F(WholeVoices, GetAFreeNameThatIsLikeTheWantedOne) {
  fs::create_directories("voices/Kim");
  EXPECT_EQ(FreeVoiceName("kim"), "kim 2");
  EXPECT_EQ(FreeVoiceName(" .a:b/c. "), "a_b_c");
  EXPECT_EQ(FreeVoiceName("..."), "Voice");
  EXPECT_EQ(FreeVoiceName("\xFF"), "Voice");
  EXPECT_EQ(FreeVoiceName("notes.txt"), "Voice");
  EXPECT_EQ(FreeVoiceName(std::string(300, 'x')), std::string(90, 'x'));
}

TEST_F(WholeVoices, AreRenamedWithAllTheirClips) {
  PutClip("voices/Kim/exercise/Squat.WAV", 's');
  RenameVoice("Kim", "KIM");
  EXPECT_THAT(ListVoices(), ElementsAre("KIM"));
  EXPECT_EQ(GetFile("voices/KIM/exercise/Squat.WAV"), ClipOf('s'));
}

TEST_F(WholeVoices, NeverTakeThePlaceOfAnother) {
  PutClip("voices/Kim/1.wav", 'k');
  PutClip("voices/Sam/1.wav", 's');
  EXPECT_THAT(FailureOf([] { RenameVoice("Kim", "Sam"); }), HasSubstr("could not be renamed"));
  EXPECT_EQ(GetFile("voices/Kim/1.wav"), ClipOf('k'));
  EXPECT_EQ(GetFile("voices/Sam/1.wav"), ClipOf('s'));
}

TEST_F(WholeVoices, AreRemovedWhole) {
  PutClip("voices/Kim/exercise/Squat.WAV", 's');
  PutClip("voices/.removed/1.wav", 'x');
  PutClip("voices/Sam/1.wav", 's');
  RemoveVoice("Kim");
  EXPECT_THAT(ListVoices(), ElementsAre("Sam"));
  EXPECT_FALSE(fs::exists("voices/.removed"));
}

TEST_F(WholeVoices, ListTheirClipsWordsFirst) {
  for (const char* file : {"exercise/squat.wav", "Sets.WAV", "1.wav", "notes.txt"}) {
    PutClip("v/" + std::string(file), 'x');
  }
  EXPECT_THAT(ClipsIn("v/"), ElementsAre("1.wav", "Sets.WAV", "exercise/squat.wav"));
}

}  // namespace
}  // namespace repvolta
