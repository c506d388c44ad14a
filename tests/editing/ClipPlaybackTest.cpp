#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editing/ClipPlayback.h"

#include "fakes/FakeSound.h"
#include "support/ClipBytes.h"
#include "support/EditorFixture.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ClipPlaybackTest : public EditorFixture {
 protected:
  ClipPlaybackTest() {
    PutFile("voice/3.wav", AsText(ClipBytes({1, 1})));
    PutFile("voice/sets.wav", AsText(ClipBytes({2, 2})));
  }

  void PlayWords(const std::vector<std::string>& words,
                 const std::vector<std::string>& unsaid = {}) {
    std::vector<Clip> clips;
    for (const std::string& word : words) clips.push_back({Clip::Kind::kWord, word});
    playback.PlaySentence(clips, unsaid);
  }

  FakeSoundPlayer player;
  FakeBackgroundSpeech backgroundSpeech;
  VoiceServices services{
      .editor = editor, .player = player, .speech = backgroundSpeech, .output = [] {
        return ChosenOutput{1, "Headphones"};
      }};
  int changes = 0;
  ClipPlayback playback{services, [this] { ++changes; }};
};

TEST_F(ClipPlaybackTest, PlaysAClipThroughTheChosenOutput) {
  playback.PlayClip("3.wav", "three");
  EXPECT_THAT(player.files, ElementsAre("voice/3.wav"));
  EXPECT_THAT(player.outputs, ElementsAre("Headphones"));
  EXPECT_EQ(playback.Heard(), "3.wav");
  EXPECT_EQ(playback.Notice(), "\"three\" is heard.");
  EXPECT_EQ(changes, 1);
}

TEST_F(ClipPlaybackTest, IsQuietWhenTheClipHasEnded) {
  playback.PlayClip("3.wav", "three");
  player.End();
  EXPECT_FALSE(playback.IsPlaying());
  EXPECT_EQ(playback.Heard(), "");
  EXPECT_EQ(playback.Notice(), "");
}

TEST_F(ClipPlaybackTest, JoinsASentence) {
  PlayWords({"3", "sets"});
  EXPECT_EQ(player.played.at(0).size(), 46U + 4);
  EXPECT_TRUE(playback.IsPlaying());
  EXPECT_EQ(playback.Heard(), "");
  EXPECT_EQ(playback.Notice(), "The sentence is heard.");
}

TEST_F(ClipPlaybackTest, LeavesNothingOfASentenceBehind) {
  PlayWords({"3", "sets"});
  EXPECT_TRUE(std::filesystem::exists(player.files.at(0)));
  player.End();
  EXPECT_FALSE(std::filesystem::exists(player.files.at(0)));
}

TEST_F(ClipPlaybackTest, NamesWhatThereIsNoClipForAlsoWhenItHasBeenHeard) {
  PlayWords({"3"}, {"quick", "please"});
  EXPECT_EQ(playback.Notice(),
            "The sentence is heard. There is no clip for \"quick\", \"please\".");
  player.End();
  EXPECT_EQ(playback.Notice(), "There is no clip for \"quick\", \"please\".");
}

TEST_F(ClipPlaybackTest, NamesAClipThatHasGone) {
  PlayWords({"3", "reps"});
  EXPECT_EQ(playback.Notice(), "The sentence is heard. voice/reps.wav NOT FOUND.");
}

TEST_F(ClipPlaybackTest, PlaysNoSentenceWithoutAClip) {
  PlayWords({}, {"hello"});
  EXPECT_EQ(playback.Notice(), "There is no clip for \"hello\".");
  PlayWords({});
  EXPECT_EQ(playback.Notice(), "Type the words that are to be heard.");
  EXPECT_THAT(player.files, IsEmpty());
}

TEST_F(ClipPlaybackTest, SaysWhyNothingIsHeard) {
  player.refusal = "The output is gone.";
  playback.PlayClip("3.wav", "three");
  EXPECT_FALSE(playback.IsPlaying());
  EXPECT_EQ(playback.Notice(), "The output is gone.");
  PlayWords({"3"});
  EXPECT_FALSE(playback.IsPlaying());
  EXPECT_EQ(playback.Notice(), "The output is gone.");
}

TEST_F(ClipPlaybackTest, SaysThatTheSoundBroke) {
  playback.PlayClip("3.wav", "three");
  player.End("The output is gone.");
  EXPECT_EQ(playback.Notice(), "The output is gone.");
}

TEST_F(ClipPlaybackTest, SaysThatAClipCannotBeRead) {
  playback.PlayClip("reps.wav", "reps");
  EXPECT_THAT(playback.Notice(), HasSubstr("reps.wav"));
  EXPECT_FALSE(playback.IsPlaying());
}

TEST_F(ClipPlaybackTest, Stops) {
  playback.PlayClip("3.wav", "three");
  playback.Stop();
  EXPECT_FALSE(player.IsPlaying());
  EXPECT_FALSE(playback.IsPlaying());
  EXPECT_EQ(playback.Notice(), "");
}

TEST_F(ClipPlaybackTest, EndsWithItsWindow) {
  {
    ClipPlayback other(services, [] {});
    other.PlayClip("3.wav", "three");
  }
  EXPECT_FALSE(player.IsPlaying());
}

}  // namespace
}  // namespace repvolta
