#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <filesystem>

#include "app/ClipOrigins.h"
#include "ui/SayDifferentlyForm.h"

#include "support/Accessibility.h"
#include "support/FormFixture.h"
#include "support/ToneClip.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::Pair;
using testing::UnorderedElementsAre;

/// The window "Say It Differently" of a workout with "OHP" and "RDL"; "Squat" has a clip.
class SayDifferentlyWindow : public FormFixture {
 protected:
  SayDifferentlyWindow() {
    PutFile("voice/exercise/Squat.WAV", AsText(ToneClip(0.1F)));
    AddExercise("RDL");
    AddExercise("OHP");
    Open("");
  }

  void Open(const std::string& clip) {
    window = std::make_unique<SayDifferentlyForm>(services, clip, form.get());
    window->show();
    window->activateWindow();
  }

  template <class Control>
  Control& In(const char* name) {
    return Find<Control>(*window, name);
  }

  std::string Name() { return In<QComboBox>("NameBox").currentText().toStdString(); }
  std::string Said() { return In<QLineEdit>("SayText").text().toStdString(); }
  std::string Notice() { return In<QLabel>("NoticeLabel").text().toStdString(); }
  bool CanPress(const char* button) { return In<QPushButton>(button).isEnabled(); }
  void Press(const char* button) { In<QPushButton>(button).click(); }
  void Type(const char* text) { In<QLineEdit>("SayText").setText(text); }

  VoiceServices services{
      .editor = form->GetEditor(), .player = player, .speech = backgroundSpeech, .output = [] {
        return ChosenOutput{1, "Headphones"};
      }};
  std::unique_ptr<SayDifferentlyForm> window;
};

TEST_F(SayDifferentlyWindow, BeginsWithTheFirstNameAsItIsWritten) {
  EXPECT_EQ(In<QComboBox>("NameBox").count(), 3);
  EXPECT_EQ(Name(), "OHP");
  EXPECT_EQ(Said(), "OHP");
  EXPECT_EQ(In<QLineEdit>("SayText").selectedText(), "OHP");
}

TEST_F(SayDifferentlyWindow, BeginsWithTheNameOfAClip) {
  Open("exercise/SQUAT.wav");
  EXPECT_EQ(Name(), "Squat");
}

TEST_F(SayDifferentlyWindow, SaysWhyNothingCanBeKeptWhileTheNotesCannotBeRead) {
  std::filesystem::create_directories("voices/origins.txt");
  Open("");
  EXPECT_EQ(Said(), "OHP");
  EXPECT_THAT(Notice(), HasSubstr("voices/origins.txt could not be read: It is not a file."));
}

TEST_F(SayDifferentlyWindow, ListsAllVoices) {
  const auto& box = In<QComboBox>("VoiceBox");
  EXPECT_EQ(box.count(), 2);
  EXPECT_EQ(box.itemText(1), "second");
}

TEST_F(SayDifferentlyWindow, SpeaksWhatIsTypedAndKeepsIt) {
  Type("Overhead Press");
  In<QComboBox>("VoiceBox").setCurrentIndex(1);
  In<QSlider>("RateSlider").setValue(-4);
  Press("ListenButton");
  EXPECT_TRUE(CanPress("StopButton"));
  backgroundSpeech.End(ToneClip(0.1F));
  player.End();
  EXPECT_FALSE(CanPress("StopButton"));
  Press("KeepButton");
  EXPECT_EQ(Notice(), "\"OHP\" is said so from now on.");
  const ClipOrigin origin =
      ClipOrigins("").Of("exercise/OHP.WAV", GetFile("voice/exercise/OHP.WAV"));
  EXPECT_EQ(origin.text, "Overhead Press");
  EXPECT_EQ(origin.voice, "second");
  EXPECT_EQ(origin.rate, -4);
}

TEST_F(SayDifferentlyWindow, ShowsWhatWasSaidLast) {
  Type("Overhead Press");
  In<QSlider>("RateSlider").setValue(3);
  Press("KeepButton");
  backgroundSpeech.End(ToneClip(0.1F));
  In<QComboBox>("NameBox").setCurrentIndex(1);
  EXPECT_EQ(Said(), "RDL");
  EXPECT_EQ(In<QLabel>("RateValue").text(), "0");
  In<QComboBox>("NameBox").setCurrentIndex(0);
  EXPECT_EQ(Said(), "Overhead Press");
  EXPECT_EQ(In<QLabel>("RateValue").text(), "3");
}

TEST_F(SayDifferentlyWindow, ListensByEnter) {
  Type("Overhead Press");
  QTest::keyClick(&In<QLineEdit>("SayText"), Qt::Key_Return);
  EXPECT_TRUE(window->isVisible());
  EXPECT_TRUE(backgroundSpeech.IsSpeaking());
}

TEST_F(SayDifferentlyWindow, ChangesNothingWhenItIsClosed) {
  Press("ListenButton");
  QTest::keyClick(window.get(), Qt::Key_Escape);
  EXPECT_FALSE(window->isVisible());
  EXPECT_FALSE(backgroundSpeech.IsSpeaking());
  EXPECT_FALSE(fs::exists("voice/exercise/OHP.WAV"));
}

TEST_F(SayDifferentlyWindow, IsSilentAboutAnotherName) {
  Press("ListenButton");
  In<QComboBox>("NameBox").setCurrentIndex(1);
  EXPECT_FALSE(backgroundSpeech.IsSpeaking());
  EXPECT_EQ(Notice(), "");
}

TEST_F(SayDifferentlyWindow, IsUsedWithAScreenReaderAndKeys) {
  Press("ListenButton");
  EXPECT_THAT(HeardNames(*window),
              UnorderedElementsAre(Pair("Name:", 1), Pair("Say:", 1), Pair("Voice:", 1),
                                   Pair("Speaking rate:", 1), Pair("Listen", 1), Pair("Stop", 1),
                                   Pair("Keep", 1), Pair("Close", 1)));
  for (const auto& [letter, count] : Mnemonics(*window)) EXPECT_EQ(count, 1) << letter;
  EXPECT_EQ(Mnemonics(*window).size(), 8U);
}

TEST_F(SayDifferentlyWindow, FitsWithTheLargestFontAndALongName) {
  AddExercise("Single-Leg Romanian Deadlift with the Kettlebell in One Hand");
  window->setStyleSheet("* { font-size: 14pt; }");
  window->adjustSize();
  EXPECT_LE(window->width(), 800);
  EXPECT_LE(window->minimumSizeHint().height(), 600);
}

}  // namespace
}  // namespace repvolta
