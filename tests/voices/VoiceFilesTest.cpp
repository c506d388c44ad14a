#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "voices/VoiceFiles.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Pair;

TEST(VoiceFiles, AreClipsWhateverTheirCaseAndSpelling) {
  EXPECT_EQ(ClipOfPath("300.wav"), "300.wav");
  EXPECT_EQ(ClipOfPath("KILOGRAMS.WAV"), "kilograms.wav");
  EXPECT_EQ(ClipOfPath(" sets .wav"), "sets.wav");
  EXPECT_EQ(ClipOfPath("Exercise/Bench Press.wav"), "exercise/Bench Press.WAV");
  EXPECT_EQ(ClipOfPath("exercise/U\u0308bung.Wav"), "exercise/\u00DCbung.WAV");
}

TEST(VoiceFiles, AreNoClipsWhenTheProgramNeverSaysThem) {
  for (const char* path : {"21.wav", "300.mp3", "300", ".wav", "exercise/.wav", "exercise/ .wav",
                           "other/300.wav", "exercise/x/Squat.wav", "exercise/a\\b.wav",
                           "exercise/\xFF.wav", "exercise/Squat.lst", "voice.zip"}) {
    EXPECT_EQ(ClipOfPath(path), "") << path;
  }
}

TEST(VoiceFiles, MayLieInAFolderOfAFolder) {
  const VoiceFiles files = FindVoiceFiles(
      {"My voices/Kim/1.wav", "My voices/Kim/exercise/Squat.wav", "My voices/read me.txt"});
  EXPECT_EQ(files.fault, "");
  EXPECT_THAT(files.clips,
              ElementsAre(Pair("1.wav", "My voices/Kim/1.wav"),
                          Pair("exercise/Squat.WAV", "My voices/Kim/exercise/Squat.wav")));
  EXPECT_THAT(files.leftOut, ElementsAre("My voices/read me.txt"));
}

TEST(VoiceFiles, MayBeOnlyNames) {
  EXPECT_THAT(FindVoiceFiles({"Exercise/Squat.WAV"}).clips,
              ElementsAre(Pair("exercise/Squat.WAV", "Exercise/Squat.WAV")));
}

TEST(VoiceFiles, HaveTheirVoiceAboveRecordingsThatWereLeftThere) {
  const VoiceFiles files = FindVoiceFiles({"raw/1.wav", "1.wav", "Kim.txt"});
  EXPECT_THAT(files.clips, ElementsAre(Pair("1.wav", "1.wav")));
  EXPECT_THAT(files.leftOut, ElementsAre("raw/1.wav", "Kim.txt"));
}

TEST(VoiceFiles, AreRefusedWhenTheyAreSeveralVoices) {
  EXPECT_THAT(FindVoiceFiles({"Kim/1.wav", "Sam/1.wav"}).fault,
              HasSubstr("It holds several voices: Kim, Sam."));
}

TEST(VoiceFiles, AreRefusedWhenOneClipIsThereTwice) {
  EXPECT_EQ(FindVoiceFiles({"exercise/Squat.wav", "exercise/SQUAT.WAV"}).fault,
            "It holds the clip exercise/SQUAT.WAV more than once");
}

TEST(VoiceFiles, AreRefusedWithoutAClip) {
  EXPECT_THAT(FindVoiceFiles({"notes.txt", "21.wav"}).fault, HasSubstr("It holds no clip"));
}

TEST(VoiceFiles, SayNothingOfHiddenFiles) {
  const VoiceFiles files =
      FindVoiceFiles({"Kim/1.wav", "Kim/.DS_Store", "__MACOSX/Kim/._1.wav", ".x/1.wav"});
  EXPECT_EQ(files.fault, "");
  EXPECT_THAT(files.leftOut, IsEmpty());
}

}  // namespace
}  // namespace repvolta
