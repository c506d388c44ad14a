#include <QAction>
#include <QProgressBar>
#include <QPushButton>
#include <QSlider>

#include "editing/GuidePages.h"
#include "ui/RowTable.h"
#include "ui/VoiceAndMusicForm.h"

#include "support/Accessibility.h"
#include "support/FormFixture.h"
#include "support/SongFiles.h"

namespace repvolta {
namespace {

using testing::Each;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;

/// The window "Voice and Music" of a voice with some words; the workout has a loud song and one
/// that is none.
class VoiceAndMusicWindow : public FormFixture {
 protected:
  VoiceAndMusicWindow() {
    for (const char* word : {"3", "sets", "50", "for", "10", "reps"}) {
      PutToneClip(std::string("voice/") + word + ".wav", 0.18F);
    }
    PutSteadySong("loud.mp3");
    PutFile("bad.mp3", "no music");
    ExerciseRecord& exercise = AddExercise("Squat");
    exercise.NumberOfMusicFiles = 2;
    exercise.MusicFile[0] = folder.Path() + "bad.mp3";
    exercise.MusicFile[1] = folder.Path() + "loud.mp3";
    window = std::make_unique<VoiceAndMusicForm>(services, form.get());
    window->show();
    window->activateWindow();
  }

  void MeasureAll() {
    while (In<QProgressBar>("MeasureBar").isVisible()) Wait();
  }

  static void Wait() { QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents); }

  template <class Control>
  Control& In(const char* name) {
    return Find<Control>(*window, name);
  }

  QSlider& Slider() { return In<QSlider>("LevelSlider"); }
  void Press(const char* button) { In<QPushButton>(button).click(); }
  std::string Says(const char* label) { return In<QLabel>(label).text().toStdString(); }

  std::string Cell(int row, int column) {
    const QAbstractItemModel& model = *In<RowTable>("SongsTable").model();
    return model.data(model.index(row, column), Qt::DisplayRole).toString().toStdString();
  }

  VoiceServices services{
      .editor = form->GetEditor(), .player = player, .speech = backgroundSpeech, .output = [] {
        return ChosenOutput{1, "Headphones"};
      }};
  std::unique_ptr<VoiceAndMusicForm> window;
};

TEST_F(VoiceAndMusicWindow, MeasuresTheSongsAtOnce) {
  EXPECT_THAT(Says("SummaryLabel"), HasSubstr("is being measured ..."));
  EXPECT_FALSE(In<QPushButton>("RecommendedButton").isEnabled());
  MeasureAll();
  EXPECT_EQ(Cell(0, 0), "bad.mp3");
  EXPECT_EQ(Cell(0, 1), "It is no MP3 file");
  EXPECT_THAT(Cell(1, 1), HasSubstr(" LUFS"));
  EXPECT_THAT(Says("SummaryLabel"), HasSubstr("Recommended for the voice: -10 LUFS"));
}

TEST_F(VoiceAndMusicWindow, SelectsTheSongThatTheLevelIsFor) {
  MeasureAll();
  EXPECT_EQ(In<RowTable>("SongsTable").SelectedRow(), 1);
}

TEST_F(VoiceAndMusicWindow, StopsMeasuringAndBeginsAnew) {
  Press("MeasureButton");
  EXPECT_FALSE(In<QProgressBar>("MeasureBar").isVisible());
  EXPECT_THAT(Says("SummaryLabel"), HasSubstr("Stopped."));
  EXPECT_EQ(In<QPushButton>("MeasureButton").text(), "&Measure Again");
  Press("MeasureButton");
  MeasureAll();
  EXPECT_EQ(Cell(1, 0), "loud.mp3");
}

TEST_F(VoiceAndMusicWindow, CanBeClosedWhileItMeasures) {
  window->reject();
  EXPECT_FALSE(window->isVisible());
  window.reset();
  QCoreApplication::processEvents();
}

TEST_F(VoiceAndMusicWindow, TakesTheRecommendedLevel) {
  MeasureAll();
  EXPECT_EQ(Slider().value(), -18);
  Press("RecommendedButton");
  EXPECT_EQ(Slider().value(), -10);
  EXPECT_EQ(Says("LevelText"), "The voice is to be at: -10 LUFS, 8 dB louder than as made");
}

TEST_F(VoiceAndMusicWindow, SaysTheLevelWhenItIsMovedByKeys) {
  Slider().setFocus();
  QTest::keyClick(&Slider(), Qt::Key_Right);
  EXPECT_EQ(Slider().value(), -16);
  EXPECT_EQ(Slider().accessibleDescription(), "-16 LUFS, 2 dB louder than as made");
  QTest::keyClick(&Slider(), Qt::Key_Left);
  EXPECT_EQ(Slider().value(), -18);
  EXPECT_EQ(Slider().accessibleDescription(), "as made (-18 LUFS)");
}

TEST_F(VoiceAndMusicWindow, PlaysASongAndAnInstructionAndStops) {
  MeasureAll();
  EXPECT_FALSE(In<QPushButton>("StopButton").isEnabled());
  Press("ListenButton");
  EXPECT_TRUE(In<QPushButton>("StopButton").isEnabled());
  while (player.played.empty()) Wait();
  EXPECT_THAT(Says("NoticeLabel"), HasSubstr("The voice is heard at"));
  Press("StopButton");
  EXPECT_FALSE(player.IsPlaying());
  EXPECT_FALSE(In<QPushButton>("StopButton").isEnabled());
}

TEST_F(VoiceAndMusicWindow, IsQuietWhenItIsClosed) {
  MeasureAll();
  Press("ListenButton");
  while (player.played.empty()) Wait();
  window->reject();
  EXPECT_FALSE(player.IsPlaying());
}

TEST_F(VoiceAndMusicWindow, UsesTheLevel) {
  const std::string before = GetTextFile("voice/reps.wav");
  Slider().setValue(-12);
  Press("UseButton");
  EXPECT_NE(GetTextFile("voice/reps.wav"), before);
  EXPECT_EQ(Says("ChosenLabel"), "Now: -12 LUFS, 6 dB louder than as made");
  EXPECT_THAT(Says("NoticeLabel"), HasSubstr("6 recordings were changed."));
}

TEST_F(VoiceAndMusicWindow, OpensAndSaysWhyNothingCanBeChangedWhileTheNotesCannotBeRead) {
  for (const char* notes : {"voices/origins.txt", "voices/level.txt"}) {
    std::filesystem::create_directories(notes);
    window = std::make_unique<VoiceAndMusicForm>(services, form.get());
    EXPECT_THAT(Says("NoticeLabel"), HasSubstr(std::string(notes) + " could not be read"));
    Slider().setValue(-12);
    Press("UseButton");
    EXPECT_THAT(dialogs.asked.back(), HasSubstr("It is not a file. Nothing was changed"));
    std::filesystem::remove(notes);
  }
}

TEST_F(VoiceAndMusicWindow, ShowsWhyNothingCanBeHeard) {
  MeasureAll();
  std::filesystem::remove_all("voice");
  Press("ListenButton");
  while (In<QPushButton>("StopButton").isEnabled()) Wait();
  EXPECT_EQ(Says("NoticeLabel"), "There are no clips that could be heard.");
}

TEST_F(VoiceAndMusicWindow, BeginsWithTheLevelThatTheClipsHave) {
  Slider().setValue(-14);
  Press("UseButton");
  window = std::make_unique<VoiceAndMusicForm>(services, form.get());
  EXPECT_EQ(Slider().value(), -14);
}

TEST_F(VoiceAndMusicWindow, GivesEachControlAName) {
  MeasureAll();
  const auto names = HeardNames(*window);
  EXPECT_THAT(names, SizeIs(8));
  EXPECT_THAT(names, Each(Pair(testing::Not(IsEmpty()), 1)));
  EXPECT_THAT(Mnemonics(*window), Each(Pair(testing::_, 1)));
}

TEST_F(VoiceAndMusicWindow, HasAPageOfTheGuide) {
  EXPECT_EQ(GuidePageOf(window->objectName().toStdString(), ""), "voice-and-music.html");
}

}  // namespace
}  // namespace repvolta
