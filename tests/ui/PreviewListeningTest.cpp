#include <QLabel>
#include <QPushButton>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editing/Listening.h"
#include "editing/PreviewRows.h"
#include "ui/PreviewForm.h"
#include "ui/RowTable.h"

#include "fakes/FakeSound.h"
#include "support/Accessibility.h"
#include "support/Modal.h"
#include "support/ProgramFixture.h"
#include "support/SamplePlan.h"

namespace repvolta {
namespace {

/// The preview of two exercises, "Squat" and "Row", that have recordings.
class PreviewListening : public ProgramFixture {
 protected:
  PreviewListening() {
    state.WorkoutFileName = "Monday.RPV";
    for (const char* name : {"Squat", "Row"}) {
      AddExercise(name);
      PutFile(std::string("voice/exercise/") + name + ".WAV", ClipBytes({0xFD, 0xFD}));
    }
    form->OfferListening(listening);
    form->show();
  }

  void Click(const char* button) { Find<QPushButton>(*form, button).click(); }
  RowTable& Files() { return Find<RowTable>(*form, "FilesTable"); }
  std::string Notice() { return Find<QLabel>(*form, "NoticeLabel").text().toStdString(); }

  std::string SaidOfRow(int row) {
    return Files().model()->index(row, 0).data(Qt::AccessibleTextRole).toString().toStdString();
  }

  FakeSoundPlayer player;
  FakeBackgroundSpeech background;
  Listening listening{program,
                      {.player = player,
                       .speech = background,
                       .output = [] { return ChosenOutput{}; },
                       .current = [] { return 0; }}};
  std::unique_ptr<PreviewForm> form =
      std::make_unique<PreviewForm>(PreviewOf(SamplePlan(), SampleWorkout()));
};

TEST_F(PreviewListening, PlaysTheExerciseOfTheSelectedRow) {
  Files().SelectRow(3);
  Click("ListenButton");
  EXPECT_EQ(listening.Heard(), 1);
  EXPECT_EQ(Notice(), listening.Notice());
}

TEST_F(PreviewListening, MarksTheInstructionThatIsHeard) {
  Click("ListenButton");
  EXPECT_EQ(SaidOfRow(0), "File: RV001-Instructions.mp3, heard now");
  player.End();
  EXPECT_EQ(SaidOfRow(0), "File: RV001-Instructions.mp3");
}

TEST_F(PreviewListening, IsStopped) {
  Click("ListenButton");
  EXPECT_TRUE(Find<QPushButton>(*form, "StopButton").isEnabled());
  Click("StopButton");
  EXPECT_FALSE(player.IsPlaying());
  EXPECT_FALSE(Find<QPushButton>(*form, "StopButton").isEnabled());
}

TEST_F(PreviewListening, GoesOnToTheNextExerciseAndFromTheLastToTheFirst) {
  Click("ListenButton");
  Click("NextButton");
  EXPECT_EQ(listening.Heard(), 1);
  EXPECT_EQ(Files().SelectedRow(), 2);
  Click("NextButton");
  EXPECT_EQ(listening.Heard(), 0);
  EXPECT_EQ(Files().SelectedRow(), 0);
}

TEST_F(PreviewListening, GoesOnFromTheSelectedRowWhenItIsQuiet) {
  Click("NextButton");
  player.End();
  EXPECT_EQ(Files().SelectedRow(), 2);
  Click("NextButton");
  EXPECT_EQ(listening.Heard(), 0);
}

TEST_F(PreviewListening, SaysWhyNothingIsHeard) {
  player.refusal = "There is no sound output.";
  Click("ListenButton");
  EXPECT_EQ(Notice(), "There is no sound output.");
  EXPECT_TRUE(Find<QLabel>(*form, "NoticeLabel").isVisible());
}

TEST_F(PreviewListening, EndsWithThePreview) {
  Click("ListenButton");
  form.reset();
  EXPECT_FALSE(player.IsPlaying());
}

TEST_F(PreviewListening, KeepsNamesAndMnemonicsDistinct) {
  Click("ListenButton");
  EXPECT_THAT(HeardNames(*form), testing::Each(testing::Pair(testing::Not(""), 1)));
  EXPECT_THAT(Mnemonics(*form), testing::Each(testing::Pair(testing::_, 1)));
}

TEST(PreviewWithoutSound, HasNoButtonsToListen) {
  PreviewForm form(PreviewOf(SamplePlan(), SampleWorkout()));
  form.show();
  EXPECT_FALSE(Find<QPushButton>(form, "ListenButton").isVisible());
}

}  // namespace
}  // namespace repvolta
