#include <filesystem>
#include <memory>

#include "app/ClipOrigins.h"
#include "clips/TakeJudgement.h"
#include "editing/RecordingSession.h"
#include "update/UpdateLock.h"

#include "fakes/FakeMicrophone.h"
#include "fakes/FakeSound.h"
#include "support/EditorFixture.h"
#include "support/FullDisk.h"
#include "support/SpokenSound.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using Enter = RecordView::Enter;

/// Three words are to be recorded; the first has a clip already. Today is 25 March 2007.
class RecordingSessionTest : public EditorFixture {
 protected:
  RecordingSessionTest() {
    PutFile("voice/1.wav", "the program's one");
    session->OnChange([this] { heard.push_back(session->View().instruction); });
    session->Open({{"1.wav", "one"}, {"2.wav", "two"}, {"exercise/Squat.WAV", "Squat"}});
    heard.clear();
  }

  RecordView View() { return session->View(); }

  void Say(const std::vector<float>& sound) { microphone.Hear(sound); }

  void RecordWell() {
    session->StartOrStop();
    Say(GoodWord());
  }

  /// The verdict on what is said in one take.
  std::string VerdictOn(const SpokenSound& sound) {
    session->StartOrStop();
    Say(sound.Get());
    return View().verdict;
  }

  static std::string Happened(TakeFault fault) { return AdviceOn(fault).happened; }

  /// 0 when there is no such clip.
  static std::size_t SizeOf(const std::string& clip) {
    return std::filesystem::exists(clip) ? std::filesystem::file_size(clip) : 0;
  }

  FakeMicrophone microphone;
  FakeSoundPlayer player;
  FakeBackgroundSpeech backgroundSpeech;
  VoiceServices services{.editor = editor,
                         .player = player,
                         .speech = backgroundSpeech,
                         .output = [] { return ChosenOutput{0, "Headphones"}; },
                         .microphone = &microphone};
  std::unique_ptr<RecordingSession> session = std::make_unique<RecordingSession>(services);
  std::vector<std::string> heard;  // the instructions, one for each change
};

TEST_F(RecordingSessionTest, BeginsWithTheFirstWordAndAnOpenMicrophone) {
  EXPECT_EQ(View().word, "one");
  EXPECT_EQ(View().progress, "1 of 3");
  EXPECT_TRUE(microphone.IsOpen());
}

TEST_F(RecordingSessionTest, ShowsTheLevelBeforeAnythingIsRecorded) {
  double level = kLowestLevel;
  session->OnLevel([&](double now) { level = now; });
  Say(SpokenSound().Word(0.2, -12).Get());
  EXPECT_NEAR(level, -14, 4);
  EXPECT_EQ(View().enter, Enter::kRecord);
}

TEST_F(RecordingSessionTest, ListensToTheRoomThenWaitsThenRecordsThenPlays) {
  RecordWell();
  EXPECT_THAT(heard, ElementsAre("Listening to the room ...", "Say it now.", "Recording ...",
                                 "This is how it sounds."));
  EXPECT_EQ(View().verdict, "Good.");
  EXPECT_THAT(player.outputs, ElementsAre("Headphones"));
  player.End();
  EXPECT_EQ(View().instruction, "Enter keeps it, Space records it again.");
}

TEST_F(RecordingSessionTest, PutsAKeptWordInPlaceAsAnOwnOneOfToday) {
  RecordWell();
  EXPECT_EQ(GetTextFile("voice/1.wav"), "the program's one");
  session->Keep();
  const Bytes clip = GetFile("voice/1.wav");
  EXPECT_EQ(clip, player.played.at(0));
  const ClipOrigin origin = ClipOrigins("").Of("1.wav", clip);
  EXPECT_EQ(origin.owner, ClipOwner::kOwn);
  EXPECT_EQ(origin.day, "2007-03-25");
  EXPECT_EQ(View().word, "two");
  EXPECT_FALSE(player.IsPlaying());
}

TEST_F(RecordingSessionTest, WaitsForAKeyBeforeTheNextWord) {
  RecordWell();
  session->Keep();
  EXPECT_FALSE(View().isListening);
}

TEST_F(RecordingSessionTest, StartsTheNextWordByItself) {
  session->SetNextWord(NextWord::kStartsByItself);
  RecordWell();
  session->Keep();
  EXPECT_TRUE(View().isListening);
  Say(GoodWord());
  session->Keep();
  Say(GoodWord());
  session->Keep();
  EXPECT_EQ(View().word, "Done");
  EXPECT_EQ(View().progress, "3 of 3 recorded");
  EXPECT_GT(SizeOf("voice/exercise/Squat.WAV"), 1000U);
}

TEST_F(RecordingSessionTest, RecordsAgainInsteadOfKeeping) {
  RecordWell();
  RecordWell();
  EXPECT_EQ(player.files.size(), 2U);
  session->Keep();
  EXPECT_EQ(GetFile("voice/1.wav"), player.played.at(1));
}

TEST_F(RecordingSessionTest, SaysAtOnceWhatIsWrongWithATakeAndOffersAnother) {
  const std::string verdict = VerdictOn(SpokenSound().Quiet(0.4).Word(0.5, 4).Quiet(0.8));
  EXPECT_THAT(verdict, HasSubstr(Happened(TakeFault::kClipped)));
  EXPECT_THAT(verdict, HasSubstr(AdviceOn(TakeFault::kClipped).remedy));
  EXPECT_EQ(View().enter, Enter::kRecord);
  EXPECT_TRUE(player.files.empty());
}

TEST_F(RecordingSessionTest, KeepsAFaultyTakeForWhomeverItIsGoodEnough) {
  VerdictOn(SpokenSound().Quiet(0.4).Word(0.5, -38).Quiet(0.8));
  session->Keep();
  EXPECT_GT(SizeOf("voice/1.wav"), 1000U);
  EXPECT_EQ(View().word, "two");
}

TEST_F(RecordingSessionTest, KeepsNothingWhereNothingWasHeard) {
  EXPECT_THAT(VerdictOn(SpokenSound().Quiet(7)), HasSubstr(Happened(TakeFault::kNothingHeard)));
  session->Keep();
  EXPECT_EQ(View().word, "one");
  EXPECT_EQ(GetTextFile("voice/1.wav"), "the program's one");
}

TEST_F(RecordingSessionTest, AStopBeforeTheWordChangesNothing) {
  session->StartOrStop();
  Say(SpokenSound().Quiet(0.5).Get());
  session->StartOrStop();
  EXPECT_EQ(View().instruction, "Press Space, and then say it.");
  Say(GoodWord());
  EXPECT_FALSE(View().canKeep);
}

TEST_F(RecordingSessionTest, AStopAfterTheWordEndsItAtOnce) {
  session->StartOrStop();
  Say(SpokenSound().Quiet(0.4).Word().Quiet(0.1).Get());
  session->StartOrStop();
  EXPECT_EQ(View().verdict, "Good.");
}

TEST_F(RecordingSessionTest, LeavesAWordAsItIsAndGoesBack) {
  session->Next();
  EXPECT_EQ(View().word, "two");
  session->Back();
  EXPECT_EQ(View().word, "one");
  EXPECT_EQ(View().verdict, "");
  EXPECT_EQ(GetTextFile("voice/1.wav"), "the program's one");
}

TEST_F(RecordingSessionTest, RemembersWhatWasKept) {
  RecordWell();
  session->Keep();
  session->Back();
  EXPECT_EQ(View().verdict, "You have recorded this one.");
}

TEST_F(RecordingSessionTest, GoesBackFromTheEnd) {
  for (int i = 0; i < 3; ++i) session->Next();
  EXPECT_EQ(View().word, "Done");
  session->StartOrStop();
  session->Back();
  EXPECT_EQ(View().word, "Squat");
}

TEST_F(RecordingSessionTest, PlaysTheClipThatIsThereOrWhatWasRecorded) {
  session->Listen();
  EXPECT_EQ(View().instruction, "This is how it sounds.");
  EXPECT_EQ(AsText(player.played.at(0)), "the program's one");
  player.End();
  EXPECT_EQ(View().instruction, "Press Space, and then say it.");
  RecordWell();
  player.End();
  session->Listen();
  EXPECT_EQ(player.played.at(2), player.played.at(1));
}

TEST_F(RecordingSessionTest, SaysThatThereIsNoClipToHear) {
  session->Next();
  session->Listen();
  EXPECT_EQ(View().verdict, "There is no clip of it yet.");
}

TEST_F(RecordingSessionTest, WhatCannotBeHeardCanBeKeptAllTheSame) {
  player.refusal = "This computer has no audio output.";
  RecordWell();
  EXPECT_EQ(View().verdict, "Good. This computer has no audio output.");
  session->Keep();
  EXPECT_EQ(View().word, "two");
}

TEST_F(RecordingSessionTest, WithoutAMicrophoneItSaysSoAndStaysWhereItWas) {
  session->Next();
  microphone.Lose("The microphone \"Headset\" is not there any more.");
  EXPECT_EQ(View().verdict, "The microphone \"Headset\" is not there any more.");
  microphone.refusal = "This computer has no microphone.";
  session->StartOrStop();
  EXPECT_EQ(View().verdict, "This computer has no microphone.");
  EXPECT_EQ(View().word, "two");
  microphone.refusal.clear();
  RecordWell();
  EXPECT_EQ(View().verdict, "Good.");
}

TEST_F(RecordingSessionTest, WithoutAMicrophoneItSaysWhatToDoAtEachWord) {
  microphone.refusal = "This computer has no microphone.";
  session->Use({0, ""});
  session->Next();
  EXPECT_EQ(View().verdict, "This computer has no microphone.");
  EXPECT_EQ(View().instruction, "Plug in a microphone, or press Space to try again.");
}

TEST_F(RecordingSessionTest, AsksForTheWordAgainOnceAMicrophoneIsHeard) {
  microphone.Lose("The microphone \"Headset\" cannot give any sound.");
  session->Use({0, "Headset"});
  EXPECT_EQ(View().verdict, "The microphone \"Headset\" cannot give any sound.");
  heard.clear();
  Say(SpokenSound().Quiet(0.1).Get());
  EXPECT_THAT(heard, ElementsAre("Press Space, and then say it."));
  EXPECT_EQ(View().verdict, "");
}

TEST_F(RecordingSessionTest, ABrokenMicrophoneIsToldOnceHoweverOftenItIsTried) {
  microphone.Lose("The microphone \"Headset\" cannot give any sound.");
  session->Use({0, "Headset"});
  heard.clear();
  microphone.Lose("The microphone \"Headset\" cannot give any sound.");
  EXPECT_TRUE(heard.empty());
  EXPECT_EQ(View().verdict, "The microphone \"Headset\" cannot give any sound.");
}

TEST_F(RecordingSessionTest, AWordStaysOneThatWasKeptWhenTheMicrophoneComesAndGoes) {
  RecordWell();
  session->Keep();
  session->Back();
  microphone.Lose("The microphone \"Headset\" is not there any more.");
  EXPECT_EQ(View().verdict,
            "You have recorded this one. The microphone \"Headset\" is not there any more.");
  session->Use({0, "Headset"});
  Say(SpokenSound().Quiet(0.1).Get());
  EXPECT_EQ(View().verdict, "You have recorded this one.");
}

TEST_F(RecordingSessionTest, WithoutAMicrophoneNoTakeIsOfferedAgain) {
  RecordWell();
  player.End();
  microphone.Lose("The microphone \"Headset\" is not there any more.");
  EXPECT_EQ(View().instruction, "Enter keeps it.");
}

TEST_F(RecordingSessionTest, ATakeIsNotLostByTryingAnotherWithoutAMicrophone) {
  RecordWell();
  microphone.Lose("The microphone \"Headset\" is not there any more.");
  microphone.refusal = "This computer has no microphone.";
  session->StartOrStop();
  EXPECT_EQ(View().verdict, "Good. This computer has no microphone.");
  session->Keep();
  EXPECT_EQ(GetFile("voice/1.wav"), player.played.at(0));
}

TEST_F(RecordingSessionTest, SaysThatNothingCanBeRecordedWithoutAService) {
  services.microphone = nullptr;
  session->StartOrStop();
  session->Stop();
  RecordingSession other(services);
  other.Open({{"1.wav", "one"}});
  EXPECT_EQ(other.View().verdict, "Nothing can be recorded on this computer.");
}

TEST_F(RecordingSessionTest, AMicrophoneThatGoesAwayInAWordLosesOnlyThatWord) {
  RecordWell();
  session->Keep();
  session->StartOrStop();
  Say(SpokenSound().Quiet(0.4).Word().Get());
  microphone.Lose("The microphone \"Headset\" is not there any more.");
  EXPECT_EQ(View().word, "two");
  EXPECT_EQ(View().verdict, "The microphone \"Headset\" is not there any more.");
  EXPECT_EQ(View().enter, Enter::kRecord);
  EXPECT_FALSE(std::filesystem::exists("voice/2.wav"));
  EXPECT_GT(SizeOf("voice/1.wav"), 1000U);
}

TEST_F(RecordingSessionTest, AMicrophoneThatGoesAwayLaterLeavesTheTake) {
  RecordWell();
  microphone.Lose("The microphone \"Headset\" is not there any more.");
  EXPECT_EQ(View().verdict, "Good. The microphone \"Headset\" is not there any more.");
  session->Use({0, "Webcam"});
  session->Keep();
  EXPECT_GT(SizeOf("voice/1.wav"), 1000U);
  EXPECT_EQ(microphone.opened.back(), "Webcam");
}

TEST_F(RecordingSessionTest, AnotherMicrophoneBeginsTheWordAnew) {
  session->StartOrStop();
  Say(SpokenSound().Quiet(0.4).Word().Get());
  session->Use({1, "Webcam"});
  EXPECT_FALSE(View().isListening);
  EXPECT_EQ(View().word, "one");
  RecordWell();
  EXPECT_EQ(View().verdict, "Good.");
}

TEST_F(RecordingSessionTest, AFullDiskIsToldAndTheTakeCanBeKeptLater) {
  RecordWell();
  {
    const FullDisk full(0);
    session->Keep();
  }
  EXPECT_THAT(View().verdict,
              HasSubstr("voice/1.wav could not be changed: File too large. Nothing was changed"));
  EXPECT_EQ(View().word, "one");
  EXPECT_EQ(View().enter, Enter::kKeep);
  EXPECT_EQ(GetTextFile("voice/1.wav"), "the program's one");
  session->Keep();
  EXPECT_EQ(GetFile("voice/1.wav"), player.played.at(0));
}

TEST_F(RecordingSessionTest, AnUpdateThatRunsIsToldAndTheTakeCanBeKeptLater) {
  RecordWell();
  {
    const UpdateLock update(folder.Path());
    session->Keep();
  }
  EXPECT_THAT(View().verdict, HasSubstr("An update is running."));
  EXPECT_EQ(View().word, "one");
  session->Keep();
  EXPECT_EQ(View().word, "two");
}

TEST_F(RecordingSessionTest, ClosingLosesOnlyWhatWasNotKept) {
  RecordWell();
  session->Keep();
  RecordWell();
  session.reset();
  EXPECT_FALSE(microphone.IsOpen());
  EXPECT_FALSE(player.IsPlaying());
  EXPECT_GT(SizeOf("voice/1.wav"), 1000U);
  EXPECT_FALSE(std::filesystem::exists("voice/2.wav"));
}

TEST_F(RecordingSessionTest, PutsASilentClipWhereALanguageSaysNothing) {
  session->Open({{"and.wav", ""}, {"2.wav", "zwei"}});
  EXPECT_EQ(View().enter, Enter::kKeep);
  session->Keep();
  EXPECT_GT(SizeOf("voice/and.wav"), 1000U);
  EXPECT_EQ(View().word, "zwei");
}

TEST_F(RecordingSessionTest, HasNothingToDoWithAnEmptyList) {
  session->Open({});
  EXPECT_EQ(View().word, "Nothing to record");
  session->StartOrStop();
  session->Keep();
  session->Listen();
  session->Next();
  session->Back();
  EXPECT_EQ(View().word, "Nothing to record");
}

}  // namespace
}  // namespace repvolta
