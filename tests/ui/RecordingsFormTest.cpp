#include <QAction>
#include <QHeaderView>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTableView>

#include "ui/RecordingsForm.h"
#include "ui/RowTable.h"

#include "fakes/FakeMicrophone.h"
#include "support/Accessibility.h"
#include "support/FormFixture.h"
#include "support/ToneClip.h"

namespace repvolta {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

/// The window "Recordings" of a voice with two words and two names, of which "Lunge" is quiet; a
/// workout has an exercise without a recording.
class RecordingsWindow : public FormFixture {
 protected:
  RecordingsWindow() {
    for (const char* clip : {"3.wav", "sets.wav", "exercise/Squat.WAV"}) Put(clip, 0.2F);
    Put("exercise/Lunge.WAV", 0.05F);
    AddExercise("Zercher Hop");
    Open();
    ReadAll();
  }

  static void Put(const std::string& clip, float level) {
    PutFile("voice/" + clip, AsText(ToneClip(level)));
  }

  void Open() {
    window = std::make_unique<RecordingsForm>(services, form.get());
    window->show();
    window->activateWindow();
  }

  void ReadAll() {
    while (!window->IsComplete()) QCoreApplication::processEvents();
  }

  template <class Control>
  Control& In(const char* name) {
    return Find<Control>(*window, name);
  }

  RowTable& Table() { return In<RowTable>("RecordingsTable"); }

  std::string Cell(int row, int column, int role = Qt::DisplayRole) {
    const QAbstractItemModel& model = *Table().model();
    return model.data(model.index(row, column), role).toString().toStdString();
  }

  std::vector<std::string> Said() {
    std::vector<std::string> said;
    for (int i = 0; i < Table().model()->rowCount(); ++i) said.push_back(Cell(i, kRecordingSaid));
    return said;
  }

  void Choose(RecordingsChoice choice) {
    In<QComboBox>("ShowBox").setCurrentIndex(static_cast<int>(choice));
  }

  void Filter(const char* text) { In<QLineEdit>("FilterText").setText(text); }

  void Press(const char* button) { In<QPushButton>(button).click(); }

  std::string Notice() { return In<QLabel>("NoticeLabel").text().toStdString(); }

  FakeMicrophone microphone;
  VoiceServices services{
      .editor = form->GetEditor(), .player = player, .speech = backgroundSpeech, .output = [] {
        return ChosenOutput{1, "Headphones"};
      }};
  std::unique_ptr<RecordingsForm> window;
};

TEST_F(RecordingsWindow, ShowsAllWordsAndNamesWhatIsMissingFirst) {
  EXPECT_EQ(Said().size(), 59U + 3);
  EXPECT_EQ(Said().front(), "one");
  EXPECT_EQ(Cell(0, kRecordingFault), "is missing");
  Filter("e");
  EXPECT_EQ(Said().back(), "Lunge");
}

TEST_F(RecordingsWindow, ShowsWhatIsMissingBeforeItHasReadAnything) {
  Open();
  EXPECT_FALSE(window->IsComplete());
  EXPECT_TRUE(In<QProgressBar>("ReadingBar").isVisible());
  Choose(RecordingsChoice::kMissing);
  Filter("zercher");
  EXPECT_THAT(Said(), ElementsAre("Zercher Hop"));
  ReadAll();
  EXPECT_FALSE(In<QProgressBar>("ReadingBar").isVisible());
}

TEST_F(RecordingsWindow, CanBeClosedWhileItReads) {
  Open();
  window->reject();
  QCoreApplication::processEvents();
  EXPECT_FALSE(window->IsComplete());
}

TEST_F(RecordingsWindow, SaysHowManyThereAre) {
  EXPECT_EQ(In<QLabel>("SummaryLabel").text(), "59 words and 3 names: 58 missing, 1 with a fault.");
}

TEST_F(RecordingsWindow, ShowsWhatIsChosenAndFiltered) {
  Choose(RecordingsChoice::kOwn);
  EXPECT_THAT(Said(), ElementsAre("three", "sets"));
  Filter("SET");
  EXPECT_THAT(Said(), ElementsAre("sets"));
  Choose(RecordingsChoice::kWithFaults);
  Filter("");
  EXPECT_THAT(Said(), ElementsAre("Lunge"));
}

TEST_F(RecordingsWindow, SortsByAHeadingInBothDirections) {
  const QHeaderView& headings = *Table().horizontalHeader();
  Q_EMIT Table().horizontalHeader()->sectionClicked(kRecordingLoudness);
  EXPECT_EQ(Said().front(), "Lunge");
  EXPECT_TRUE(headings.isSortIndicatorShown());
  EXPECT_EQ(In<QComboBox>("SortBox").currentText(), "LUFS");
  Q_EMIT Table().horizontalHeader()->sectionClicked(kRecordingLoudness);
  EXPECT_EQ(Said().front(), "three");
  EXPECT_EQ(headings.sortIndicatorOrder(), Qt::DescendingOrder);
}

TEST_F(RecordingsWindow, SortsByAKeyboardToo) {
  QTest::keyClick(&In<QComboBox>("SortBox"), Qt::Key_Down);
  EXPECT_EQ(Said().front(), "and");
  QTest::keyClick(&In<QComboBox>("SortBox"), Qt::Key_Up);
  EXPECT_EQ(Said().front(), "one");
  EXPECT_FALSE(Table().horizontalHeader()->isSortIndicatorShown());
}

TEST_F(RecordingsWindow, KeepsTheSelectedRecordingThroughSorting) {
  Choose(RecordingsChoice::kOwn);
  Table().SelectRow(1);
  In<QComboBox>("SortBox").setCurrentIndex(1);
  EXPECT_EQ(Said().at(static_cast<std::size_t>(Table().SelectedRow())), "sets");
}

TEST_F(RecordingsWindow, PlaysTheSelectedRecording) {
  Choose(RecordingsChoice::kOwn);
  Press("ListenButton");
  EXPECT_THAT(player.files, ElementsAre("voice/3.wav"));
  EXPECT_THAT(player.outputs, ElementsAre("Headphones"));
  EXPECT_EQ(Notice(), "\"three\" is heard.");
  EXPECT_EQ(Cell(0, kRecordingSaid, Qt::AccessibleTextRole), "What is said: three, heard now");
  player.End();
  EXPECT_EQ(Notice(), "");
  EXPECT_EQ(Cell(0, kRecordingSaid, Qt::AccessibleTextRole), "What is said: three");
}

TEST_F(RecordingsWindow, PlaysWithSpaceEnterAndADoubleClick) {
  Choose(RecordingsChoice::kOwn);
  QTest::keyClick(&Table(), Qt::Key_Space);
  QTest::keyClick(&Table(), Qt::Key_Return);
  const QPoint place = Table().visualRect(Table().currentIndex()).center();
  QTest::mouseDClick(Table().viewport(), Qt::LeftButton, {}, place);
  EXPECT_EQ(player.files.size(), 3U);
  EXPECT_TRUE(window->isVisible());
}

TEST_F(RecordingsWindow, StopsAndThenCannotStop) {
  Choose(RecordingsChoice::kOwn);
  EXPECT_FALSE(In<QPushButton>("StopButton").isEnabled());
  Press("ListenButton");
  Press("StopButton");
  EXPECT_FALSE(player.IsPlaying());
  EXPECT_FALSE(In<QPushButton>("StopButton").isEnabled());
}

TEST_F(RecordingsWindow, PlaysNothingThatIsMissing) {
  Choose(RecordingsChoice::kMissing);
  EXPECT_FALSE(In<QPushButton>("ListenButton").isEnabled());
  QTest::keyClick(&Table(), Qt::Key_Space);
  QTest::keyClick(&Table(), Qt::Key_Return);
  EXPECT_THAT(player.files, IsEmpty());
  Filter("nothing has this");
  EXPECT_FALSE(In<QPushButton>("ListenButton").isEnabled());
}

TEST_F(RecordingsWindow, SaysWhyARecordingIsNotHeard) {
  Choose(RecordingsChoice::kOwn);
  player.refusal = "The output is gone.";
  Press("ListenButton");
  EXPECT_EQ(Notice(), "The output is gone.");
}

TEST_F(RecordingsWindow, PlaysASentence) {
  auto& sentence = In<QLineEdit>("SentenceText");
  QTest::keyClicks(&sentence, "squat, three sets");
  QTest::keyClick(&sentence, Qt::Key_Return);
  EXPECT_EQ(player.played.at(0).size(), 46U + 3 * 16000);
  EXPECT_EQ(Notice(), "The sentence is heard.");
  EXPECT_TRUE(window->isVisible());
}

TEST_F(RecordingsWindow, NamesTheWordsOfASentenceThatItCannotSay) {
  In<QLineEdit>("SentenceText").setText("three quick sets of 10");
  Press("PlayButton");
  EXPECT_EQ(Notice(), "The sentence is heard. There is no clip for \"quick\", \"of\", \"10\".");
}

TEST_F(RecordingsWindow, IsQuietWhenItIsClosed) {
  Choose(RecordingsChoice::kOwn);
  Press("ListenButton");
  QTest::keyClick(window.get(), Qt::Key_Escape);
  EXPECT_FALSE(player.IsPlaying());
  EXPECT_FALSE(window->isVisible());
}

TEST_F(RecordingsWindow, HasTheSelectedRecordingMadeAnew) {
  Choose(RecordingsChoice::kMissing);
  Filter("ten");
  std::string opened;
  WhenModal([&opened](QWidget& box) {
    opened = Find<QLabel>(box, "WordLabel").text().toStdString();
    Put("10.wav", 0.2F);
    box.close();
  });
  Press("RecordButton");
  EXPECT_EQ(opened, "ten");
  ReadAll();
  EXPECT_THAT(Said(), Not(Contains("ten")));
}

TEST_F(RecordingsWindow, HasTheSelectedNameSaidDifferently) {
  Filter("squat");
  std::string opened;
  WhenModal([&opened](QWidget& box) {
    opened = box.objectName().toStdString();
    box.close();
  });
  Press("SayButton");
  EXPECT_EQ(opened, "SayDifferentlyForm");
}

TEST_F(RecordingsWindow, BringsTheProgramsRecordingBack) {
  PutFile("brought/exercise/Squat.WAV", AsText(ToneClip(0.2F)));
  services.programVoice = folder.Path() + "brought/";
  Put("exercise/Squat.WAV", 0.1F);
  Filter("squat");
  Press("BackButton");
  ReadAll();
  EXPECT_EQ(GetFile("voice/exercise/Squat.WAV"), ToneClip(0.2F));
  EXPECT_EQ(Cell(0, kRecordingOwner), "program's voice");
  EXPECT_FALSE(In<QPushButton>("BackButton").isEnabled());
}

TEST_F(RecordingsWindow, SaysWhyARecordingStaysAsItIs) {
  Filter("squat");
  Press("BackButton");
  EXPECT_THAT(dialogs.asked.back(), HasSubstr("The program's own clips are not here"));
  ReadAll();
  EXPECT_THAT(Said(), ElementsAre("Squat"));
}

TEST_F(RecordingsWindow, IsQuietWhileAnotherWindowIsOpen) {
  Choose(RecordingsChoice::kOwn);
  Press("ListenButton");
  Press("BackButton");
  EXPECT_FALSE(player.IsPlaying());
}

TEST_F(RecordingsWindow, ChangesNothingWithoutASelection) {
  Filter("nothing has this");
  for (const char* button : {"RecordButton", "SayButton", "BackButton"}) {
    EXPECT_FALSE(In<QPushButton>(button).isEnabled()) << button;
  }
}

TEST_F(RecordingsWindow, NamesEachControlOnce) {
  for (const auto& [name, times] : HeardNames(*window)) {
    EXPECT_FALSE(name.empty());
    EXPECT_EQ(times, 1) << name;
  }
  for (const auto& [letter, times] : Mnemonics(*window)) EXPECT_EQ(times, 1) << letter;
}

TEST_F(RecordingsWindow, LeavesTheTableWithTab) {
  EXPECT_TRUE(Table().hasFocus());
  QTest::keyClick(&Table(), Qt::Key_Tab);
  EXPECT_FALSE(Table().hasFocus());
}

TEST_F(RecordingsWindow, OpensFromTheMenuWithItsKey) {
  window.reset();
  std::string title;
  WhenModal([&title](QWidget& box) {
    title = box.windowTitle().toStdString();
    box.close();
  });
  form->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
  QTest::keyClick(&List("ExerciseList"), Qt::Key_R, Qt::ControlModifier);
  EXPECT_EQ(title, "Recordings");
}

TEST_F(RecordingsWindow, LeavesTheSelectionOfTheMainWindow) {
  window.reset();
  AddExercise("Row");
  ClickRow("ExerciseList", 1);
  WhenModal([](QWidget& box) { box.close(); });
  Get<QAction>("RecordingsAction").trigger();
  EXPECT_EQ(List("ExerciseList").currentRow(), 1);
}

TEST_F(RecordingsWindow, EndsWhatTheMainWindowPlays) {
  window.reset();
  form->GetEditor().listening->Play(0);
  WhenModal([](QWidget& box) { box.close(); });
  Get<QAction>("RecordingsAction").trigger();
  EXPECT_FALSE(form->GetEditor().listening->Heard());
  EXPECT_FALSE(backgroundSpeech.IsSpeaking());
}

TEST_F(RecordingsWindow, IsNotThereUntilItsDevicesAre) {
  const RepvoltaForm other(program, dialogs, progress, pleaseWait, "");
  EXPECT_FALSE(other.findChild<QAction*>("RecordingsAction")->isEnabled());
  EXPECT_TRUE(Get<QAction>("RecordingsAction").isEnabled());
}

TEST_F(RecordingsWindow, OpensAndSaysWhyNothingCanBeChangedWhileTheNotesCannotBeRead) {
  std::filesystem::create_directories("voices/origins.txt");
  Put("exercise/Squat.WAV", 0.1F);
  PutFile("own/exercise/Squat.WAV", AsText(ToneClip(0.2F)));
  services.programVoice = folder.Path() + "own/";
  Open();
  ReadAll();
  EXPECT_THAT(In<QLabel>("SummaryLabel").text().toStdString(),
              HasSubstr("with a fault. The recordings cannot be changed now. voices/origins.txt "
                        "could not be read: It is not a file."));
  Filter("lunge");
  EXPECT_EQ(Cell(0, kRecordingOwner), "not known");
  Filter("squat");
  Press("BackButton");
  EXPECT_THAT(dialogs.asked.back(), HasSubstr("could not be read: It is not a file. Nothing was "
                                              "changed"));
}

TEST_F(RecordingsWindow, SaysThatTheVoiceCannotBeListed) {
  window.reset();
  std::filesystem::rename("voice/exercise", "voice/before");
  std::filesystem::create_symlink("exercise", "voice/exercise");
  Get<QAction>("RecordingsAction").trigger();
  EXPECT_THAT(dialogs.asked.back(), HasSubstr("voice/exercise/ could not be read"));
}

}  // namespace
}  // namespace repvolta
