#include <filesystem>
#include <gtest/gtest.h>

#include "app/ClipOrigins.h"
#include "base/Days.h"
#include "update/NotingSpeech.h"

#include "fakes/FakeServices.h"
#include "support/OrdinaryRights.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

constexpr const char* kClip = "voice/exercise/OHP.WAV";
constexpr const char* kNotes = "voices/origins.txt";

class NotingSpeechTest : public testing::Test {
 protected:
  NotingSpeechTest() { fs::create_directories("voice/exercise"); }

  void Speak(const std::string& file) {
    noting_.SpeakToFile({.text = "Overhead Press", .file = file, .voice = 0, .rate = -3});
  }

  TemporaryFolder folder_;
  FakeSpeech speech_;
  FakeClock clock_{DateOf(2026, 11, 22) + 0.9};
  NotingSpeech noting_{speech_, clock_};
};

TEST_F(NotingSpeechTest, NotesWhatItHasSpokenIntoAClip) {
  Speak(kClip);
  const ClipOrigin origin = ClipOrigins("").Of("exercise/OHP.WAV", GetFile(kClip));
  EXPECT_EQ(origin, (ClipOrigin{.owner = ClipOwner::kComputer,
                                .day = "2026-11-22",
                                .text = "Overhead Press",
                                .voice = "first",
                                .rate = -3}));
}

TEST_F(NotingSpeechTest, RemovesTheHalfOfANoteThatAKillLeft) {
  PutFile("voices/.origins.txt.new", "half");
  const NotingSpeech next(speech_, clock_);
  EXPECT_FALSE(fs::exists("voices/.origins.txt.new"));
}

TEST_F(NotingSpeechTest, NotesNothingOfOtherFiles) {
  Speak("temp.wav");
  EXPECT_FALSE(fs::exists("voices"));
}

TEST_F(NotingSpeechTest, NotesNothingWhenNothingWasSpoken) {
  speech_.fails = true;
  EXPECT_THROW(Speak(kClip), SpeechError);
  EXPECT_FALSE(fs::exists("voices"));
}

TEST_F(NotingSpeechTest, SpeaksAlsoWhereNothingCanBeNoted) {
  const OrdinaryRights ordinary;
  PutFile(kNotes, "");
  fs::permissions(kNotes, fs::perms(0));
  fs::permissions("voices", fs::perms(0500));
  EXPECT_NO_THROW(Speak(kClip));
  fs::permissions("voices", fs::perms(0700));
  EXPECT_TRUE(fs::exists(kClip));
}

}  // namespace
}  // namespace repvolta
