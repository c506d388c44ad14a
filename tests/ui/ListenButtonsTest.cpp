#include <QPushButton>

#include "ui/ElidedLabel.h"

#include "support/ClipBytes.h"
#include "support/FormFixture.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The main window with the exercises "Squat" and "Row"; only "Zercher Hop" has no recording.
class ListenButtonsTest : public FormFixture {
 protected:
  ListenButtonsTest() {
    PutFile("voice/sets.wav", ClipBytes(Bytes(10, 1)));
    PutFile("voice/exercise/Squat.WAV", ClipBytes(Bytes(10, 2)));
    PutFile("voice/exercise/Row.WAV", ClipBytes(Bytes(10, 3)));
    AddExercise("Squat");
    AddExercise("Row");
    AddExercise("Zercher Hop");
    form->ShowAudioOutputs({"Loudspeaker", "Headphones"});
    OpenTab(0);
    ClickRow("ExerciseList", 0);
    OpenTab(1);
    form->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(form.get()));
  }

  std::string Caption() { return Get<QPushButton>("ListenButton").text().toStdString(); }

  std::string Notice() {
    return static_cast<ElidedLabel&>(Get<QLabel>("ListenNotice")).WholeText().toStdString();
  }

  void PressKey(Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
    QTest::keyClick(form->focusWidget() ? form->focusWidget() : form.get(), Qt::Key_L, modifiers);
  }
};

TEST_F(ListenButtonsTest, TheButtonListensToTheCurrentExerciseAndThenStopsIt) {
  Click("ListenButton");
  EXPECT_TRUE(player.IsPlaying());
  EXPECT_EQ(Caption(), "Stop");
  EXPECT_EQ(Notice(), "\"Squat\" is heard.");
  Click("ListenButton");
  EXPECT_FALSE(player.IsPlaying());
  EXPECT_EQ(Caption(), "Listen");
  EXPECT_EQ(Notice(), "");
}

TEST_F(ListenButtonsTest, TheEndOfTheSoundOffersToListenAgain) {
  Click("ListenButton");
  player.End();
  EXPECT_EQ(Caption(), "Listen");
}

TEST_F(ListenButtonsTest, TheNextExerciseIsNamedWhileItIsHeard) {
  Click("ListenButton");
  Click("ListenNextButton");
  EXPECT_EQ(Notice(), "\"Row\" is heard.");
  EXPECT_EQ(Text("ExerciseNameLabel"), "Squat");
}

TEST_F(ListenButtonsTest, TheKeysWorkOnEachTab) {
  for (int tab = 0; tab < 3; ++tab) {
    OpenTab(tab);
    PressKey();
    EXPECT_TRUE(player.IsPlaying()) << tab;
    PressKey();
    EXPECT_FALSE(player.IsPlaying()) << tab;
    PressKey(Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(player.IsPlaying()) << tab;
    Get<QPushButton>("ListenButton").click();
  }
}

TEST_F(ListenButtonsTest, OnTheWorkoutTabTheSelectedExerciseIsTheCurrentOne) {
  OpenTab(0);
  ClickRow("ExerciseList", 1);
  PressKey();
  EXPECT_EQ(Notice(), "\"Row\" is heard.");
}

TEST_F(ListenButtonsTest, TheChosenOutputPlays) {
  Click("ListenButton");
  Click("ListenButton");
  Get<QComboBox>("AudioOutputCB").setCurrentIndex(1);
  Click("ListenButton");
  EXPECT_THAT(player.outputs, ElementsAre("Loudspeaker", "Headphones"));
}

TEST_F(ListenButtonsTest, WithoutOutputsAtTheStartTheDefaultOneIsTried) {
  form->ShowAudioOutputs({});
  Click("ListenButton");
  EXPECT_THAT(player.outputs, ElementsAre(""));
}

TEST_F(ListenButtonsTest, AComputerWithoutSoundSaysSo) {
  player.refusal = "This computer has no audio output.";
  Click("ListenButton");
  EXPECT_THAT(dialogs.asked, ElementsAre("message|Repvolta|The instruction could not be played.\r"
                                         "This computer has no audio output."));
  EXPECT_EQ(Caption(), "Listen");
}

TEST_F(ListenButtonsTest, ASoundThatBreaksOffIsTold) {
  Click("ListenButton");
  player.End("The audio output \"Loudspeaker\" is not there any more.");
  QCoreApplication::processEvents();
  EXPECT_THAT(dialogs.asked,
              ElementsAre("message|Repvolta|The audio output \"Loudspeaker\" is not there any "
                          "more."));
  EXPECT_EQ(Notice(), "The audio output \"Loudspeaker\" is not there any more.");
}

TEST_F(ListenButtonsTest, WhileANameIsSpokenTheWindowCanBeUsedAndTheSpeakingStopped) {
  Click("ListenNextButton");
  Click("ListenNextButton");
  EXPECT_TRUE(backgroundSpeech.IsSpeaking());
  EXPECT_TRUE(Get<QWidget>("AddNewSetButton").isEnabled());
  EXPECT_EQ(Caption(), "Stop");
  Click("ListenButton");
  EXPECT_FALSE(backgroundSpeech.IsSpeaking());
}

TEST_F(ListenButtonsTest, AChangeOfTheExerciseEndsItsSound) {
  Click("ListenButton");
  dialogs.answers = {"50", "10"};
  Click("AddNewSetButton");
  EXPECT_EQ(state.Workout[0].NumberOfSets, 1);
  EXPECT_FALSE(player.IsPlaying());
}

TEST_F(ListenButtonsTest, ALookAtAnotherTabDoesNotEndTheSound) {
  Click("ListenButton");
  OpenTab(2);
  EXPECT_TRUE(player.IsPlaying());
}

TEST_F(ListenButtonsTest, AnUpdateEndsTheSound) {
  Click("ListenButton");
  form->UpdateBegins();
  EXPECT_FALSE(player.IsPlaying());
}

TEST_F(ListenButtonsTest, TheEndOfTheProgramEndsTheSound) {
  Click("ListenButton");
  form->close();
  EXPECT_FALSE(player.IsPlaying());
}

TEST_F(ListenButtonsTest, AnotherWorkoutEndsTheSound) {
  ListWorkouts({"Tuesday"});
  form->SelectWorkout(0);
  Click("ListenButton");
  Load("Tuesday.RPV");
  form->EnableWorkoutControls();
  Get<QTabWidget>("SSTab1").setCurrentIndex(2);
  EXPECT_FALSE(player.IsPlaying());
}

TEST_F(ListenButtonsTest, WithoutAnExerciseThereAreNone) {
  state.NumberOfExercises = 0;
  Show();
  OpenTab(0);
  OpenTab(1);
  EXPECT_FALSE(Get<QWidget>("ListenButton").isVisible());
  PressKey();
  EXPECT_THAT(player.played, IsEmpty());
}

}  // namespace
}  // namespace repvolta
