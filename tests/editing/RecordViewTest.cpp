#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editing/RecordView.h"

namespace repvolta {
namespace {

using testing::HasSubstr;
using Enter = RecordView::Enter;

RecordPlace PlaceIn(RecordPhase phase, TakeQuality take = TakeQuality::kNone) {
  return {.phase = phase,
          .words = "three hundred",
          .at = 11,
          .count = 60,
          .kept = 10,
          .take = take,
          .verdict = "",
          .noMicrophone = ""};
}

TEST(RecordView, ShowsTheWordAndHowFarTheListIs) {
  const RecordView view = ViewOf(PlaceIn(RecordPhase::kReady));
  EXPECT_EQ(view.word, "three hundred");
  EXPECT_EQ(view.progress, "12 of 60");
  EXPECT_EQ(view.recordCaption, "&Start");
  EXPECT_EQ(view.enter, Enter::kRecord);
  EXPECT_FALSE(view.canKeep);
}

TEST(RecordView, WhileItListensEnterDoesNothingAndTheButtonStops) {
  for (const RecordPhase phase :
       {RecordPhase::kRoom, RecordPhase::kWaiting, RecordPhase::kRecording}) {
    const RecordView view = ViewOf(PlaceIn(phase));
    EXPECT_TRUE(view.isListening);
    EXPECT_EQ(view.recordCaption, "&Stop");
    EXPECT_EQ(view.enter, Enter::kNothing);
    EXPECT_FALSE(view.canKeep);
    EXPECT_FALSE(view.canListen);
  }
}

TEST(RecordView, AGoodTakeIsKeptWithEnterAlsoWhileItIsHeard) {
  for (const RecordPhase phase : {RecordPhase::kPlaying, RecordPhase::kAsking}) {
    const RecordView view = ViewOf(PlaceIn(phase, TakeQuality::kGood));
    EXPECT_EQ(view.enter, Enter::kKeep);
    EXPECT_TRUE(view.canKeep);
    EXPECT_EQ(view.recordCaption, "&Again");
  }
}

TEST(RecordView, AFaultyTakeIsRecordedAgainWithEnterButCanBeKept) {
  const RecordView view = ViewOf(PlaceIn(RecordPhase::kAsking, TakeQuality::kFaulty));
  EXPECT_EQ(view.enter, Enter::kRecord);
  EXPECT_TRUE(view.canKeep);
  EXPECT_TRUE(view.canListen);
}

TEST(RecordView, WhereNothingWasHeardNothingCanBeKept) {
  const RecordView view = ViewOf(PlaceIn(RecordPhase::kAsking, TakeQuality::kNothingHeard));
  EXPECT_EQ(view.enter, Enter::kRecord);
  EXPECT_FALSE(view.canKeep);
  EXPECT_FALSE(view.canListen);
}

TEST(RecordView, TheClipThatIsThereIsHeardButNotKept) {
  const RecordView view = ViewOf(PlaceIn(RecordPhase::kPlaying));
  EXPECT_FALSE(view.canKeep);
  EXPECT_EQ(view.enter, Enter::kRecord);
}

TEST(RecordView, AWordThatIsNotSaidInThisLanguageCanBeKeptAtOnce) {
  RecordPlace place = PlaceIn(RecordPhase::kAsking, TakeQuality::kGood);
  place.words.clear();
  const RecordView view = ViewOf(place);
  EXPECT_EQ(view.word, "(nothing)");
  EXPECT_THAT(view.instruction, HasSubstr("Enter puts a silent clip in its place"));
  EXPECT_EQ(view.enter, Enter::kKeep);
}

TEST(RecordView, TheEndSaysHowManyWereRecorded) {
  const RecordView view = ViewOf(PlaceIn(RecordPhase::kDone));
  EXPECT_EQ(view.word, "Done");
  EXPECT_EQ(view.progress, "10 of 60 recorded");
  EXPECT_FALSE(view.canRecord);
  EXPECT_FALSE(view.canGoOn);
  EXPECT_TRUE(view.canGoBack);
  EXPECT_EQ(view.enter, Enter::kNothing);
}

TEST(RecordView, AnEmptyListSaysThatNothingIsLeft) {
  const RecordView view =
      ViewOf({.phase = RecordPhase::kDone, .words = "", .verdict = "", .noMicrophone = ""});
  EXPECT_EQ(view.word, "Nothing to record");
  EXPECT_EQ(view.spoken, "Nothing to record. There is nothing left here to record.");
  EXPECT_FALSE(view.canGoBack);
}

TEST(RecordView, WithoutAMicrophoneItSaysWhyAndWhatToDo) {
  RecordPlace place = PlaceIn(RecordPhase::kReady);
  place.verdict = "Kept.";
  place.noMicrophone = "There is none.";
  const RecordView view = ViewOf(place);
  EXPECT_EQ(view.verdict, "Kept. There is none.");
  EXPECT_EQ(view.instruction, "Plug in a microphone, or press Space to try again.");
  EXPECT_EQ(view.spoken, "three hundred. Kept. There is none. 12 of 60. " + view.instruction);
}

TEST(RecordView, WithoutAMicrophoneNothingIsRecordedAgain) {
  RecordPlace place = PlaceIn(RecordPhase::kAsking, TakeQuality::kGood);
  place.noMicrophone = "There is none.";
  EXPECT_EQ(ViewOf(place).instruction, "Enter keeps it.");
  place.take = TakeQuality::kFaulty;
  EXPECT_EQ(ViewOf(place).instruction, "Plug in a microphone, or press Space to try again.");
}

TEST(RecordView, MissesNoMicrophoneWhereNoneIsNeeded) {
  RecordPlace place = PlaceIn(RecordPhase::kWaiting);
  place.noMicrophone = "There is none.";
  EXPECT_EQ(ViewOf(place).verdict, "");
  place.phase = RecordPhase::kDone;
  EXPECT_EQ(ViewOf(place).verdict, "");
  place = PlaceIn(RecordPhase::kAsking, TakeQuality::kGood);
  place.noMicrophone = "There is none.";
  place.words.clear();
  EXPECT_EQ(ViewOf(place).verdict, "");
}

TEST(RecordView, AScreenReaderHearsTheWordTheVerdictAndWhatToDo) {
  EXPECT_EQ(ViewOf(PlaceIn(RecordPhase::kReady)).spoken,
            "three hundred. 12 of 60. Press Space, and then say it.");
  EXPECT_EQ(ViewOf(PlaceIn(RecordPhase::kWaiting)).spoken, "three hundred. Say it now.");
  RecordPlace place = PlaceIn(RecordPhase::kAsking, TakeQuality::kFaulty);
  place.verdict = "Too loud.";
  EXPECT_EQ(ViewOf(place).spoken, "three hundred. Too loud. Space records it again.");
}

}  // namespace
}  // namespace repvolta
