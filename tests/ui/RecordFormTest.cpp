#include <QAccessible>
#include <QCheckBox>
#include <QPushButton>
#include <QTimer>
#include <filesystem>

#include "app/ClipOrigins.h"
#include "app/Options.h"
#include "base/WholeFile.h"
#include "clips/VoiceCheck.h"
#include "clips/WordClips.h"
#include "ui/LargeLabel.h"
#include "ui/LevelBar.h"
#include "ui/RecordForm.h"
#include "ui/VoiceActions.h"

#include "fakes/FakeMicrophone.h"
#include "support/Accessibility.h"
#include "support/FormFixture.h"
#include "support/SpokenSound.h"
#include "support/UnreadableFile.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Key;
using testing::Not;

/// The window "Record Words" for all words, in a program directory without clips.
class RecordFormTest : public FormFixture {
 protected:
  RecordFormTest() { Open(); }

  ~RecordFormTest() override { window.reset(); }

  void Open(const std::string& clip = "") {
    window.reset();
    recording.reset();
    recording = std::make_unique<RecordWords>(services, clip);
    window = std::make_unique<RecordForm>(*recording, form.get());
    window->show();
    window->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
  }

  template <class Control>
  Control& In(const char* name) {
    return Find<Control>(*window, name);
  }

  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(window->focusWidget(), key, modifiers);
  }

  void Say(const std::vector<float>& sound) { microphone.Hear(sound); }

  std::string Shown(const char* label) { return In<QLabel>(label).text().toStdString(); }

  std::string FocusedControl() { return window->focusWidget()->objectName().toStdString(); }

  std::vector<std::string> Entries(const char* box) {
    std::vector<std::string> entries;
    for (int i = 0; i < In<QComboBox>(box).count(); ++i) {
      entries.push_back(In<QComboBox>(box).itemText(i).toStdString());
    }
    return entries;
  }

  void Choose(const char* box, int entry) {
    In<QComboBox>(box).setCurrentIndex(entry);
    Q_EMIT In<QComboBox>(box).activated(entry);
  }

  static std::string Count() { return std::to_string(WordClips().size()); }

  void LookForMicrophones() { QMetaObject::invokeMethod(window->findChild<QTimer*>(), "timeout"); }

  FakeMicrophone microphone;
  VoiceServices services{.editor = form->GetEditor(),
                         .player = player,
                         .speech = backgroundSpeech,
                         .output = [] { return ChosenOutput{}; },
                         .microphone = &microphone};
  std::unique_ptr<RecordWords> recording;
  std::unique_ptr<RecordForm> window;
};

TEST_F(RecordFormTest, RecordsAllWordsByKeyboardAlone) {
  In<QCheckBox>("ByItselfCheck").click();
  const std::vector<float> word = SpokenSound().Quiet(0.35).Word(0.25).Quiet(0.75).Get();
  Press(Qt::Key_Space);
  for (const std::string& clip : WordClips()) {
    ASSERT_EQ(Shown("WordLabel"), WordsOfClip(clip));
    ASSERT_EQ(FocusedControl(), "RecordButton");
    Say(word);
    ASSERT_EQ(Shown("VerdictLabel"), "Good.");
    Press(Qt::Key_Return);
  }
  EXPECT_EQ(Shown("ProgressLabel"), Count() + " of " + Count() + " recorded");
  EXPECT_EQ(FocusedControl(), "CloseButton");

  const VoiceCheck check = CheckVoice("voice");
  EXPECT_EQ(check.words, WordClips().size());
  EXPECT_THAT(check.findings, IsEmpty());
  const ClipOrigins origins("");
  for (const std::string& clip : WordClips()) {
    EXPECT_EQ(origins.Of(clip, GetFile("voice/" + clip)).owner, ClipOwner::kOwn) << clip;
  }
  Press(Qt::Key_Escape);
  EXPECT_FALSE(window->isVisible());
}

TEST_F(RecordFormTest, GoesOnWhereItWasClosed) {
  Press(Qt::Key_Space);
  Say(GoodWord());
  Press(Qt::Key_Return);
  Open();
  EXPECT_EQ(Shown("WordLabel"), "two");
  In<QCheckBox>("LeaveOutCheck").click();
  EXPECT_EQ(Shown("WordLabel"), "one");
  EXPECT_EQ(Shown("ProgressLabel"), "1 of " + Count());
}

TEST_F(RecordFormTest, TellsAScreenReaderTheWordThePhaseAndTheVerdict) {
  std::vector<std::string> told;
  const auto listen = [&] {
    QAccessibleInterface* focused = QAccessible::queryAccessibleInterface(window->focusWidget());
    const std::string text = focused->text(QAccessible::Description).toStdString();
    if (told.empty() || told.back() != text) told.push_back(text);
  };
  Press(Qt::Key_Space);
  const std::vector<float> word = GoodWord();
  for (std::span<const float> rest = word; !rest.empty();) {
    listen();
    const std::size_t moment = std::min<std::size_t>(Microphone::kRate / 50, rest.size());
    microphone.Hear(rest.first(moment));
    rest = rest.subspan(moment);
  }
  listen();
  player.End();
  listen();
  Press(Qt::Key_Return);
  listen();
  EXPECT_THAT(told, ElementsAre("one. Listening to the room ...", "one. Say it now.",
                                "one. Recording ...", "one. Good. This is how it sounds.",
                                "one. Good. Enter keeps it, Space records it again.",
                                "two. 2 of " + Count() + ". Press Space, and then say it."));
}

TEST_F(RecordFormTest, SaysWhatIsWrongAndEnterRecordsAgain) {
  Press(Qt::Key_Space);
  Say(SpokenSound().Quiet(0.4).Word(0.5, 4).Quiet(0.8).Get());
  EXPECT_THAT(Shown("VerdictLabel"), HasSubstr("too loud"));
  EXPECT_TRUE(In<QPushButton>("KeepButton").isEnabled());
  Press(Qt::Key_Return);
  Say(GoodWord());
  EXPECT_EQ(Shown("VerdictLabel"), "Good.");
  EXPECT_EQ(Shown("WordLabel"), "one");
}

TEST_F(RecordFormTest, EnterThatIsHeldDownKeepsNothingTwice) {
  Press(Qt::Key_Space);
  Say(GoodWord());
  Press(Qt::Key_Return);
  QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, {}, {}, true);
  QApplication::sendEvent(window->focusWidget(), &held);
  EXPECT_EQ(Shown("WordLabel"), "two");
  EXPECT_EQ(In<QPushButton>("RecordButton").text().toStdString(), "&Start");
}

TEST_F(RecordFormTest, CommandsHaveLettersOfTheirOwn) {
  Press(Qt::Key_T, Qt::AltModifier);
  // The button is seen to be pressed for a moment.
  EXPECT_TRUE(QTest::qWaitFor([&] { return Shown("WordLabel") == "two"; }));
  Press(Qt::Key_Space);
  Say(GoodWord());
  Press(Qt::Key_K, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([&] { return Shown("WordLabel") == "three"; }));
  EXPECT_EQ(FocusedControl(), "RecordButton");
}

TEST_F(RecordFormTest, TheFocusStaysWhenItsButtonIsDisabled) {
  recording->Session().Next();
  In<QPushButton>("BackButton").setFocus();
  Press(Qt::Key_Space);
  EXPECT_EQ(FocusedControl(), "RecordButton");
}

TEST_F(RecordFormTest, HasNamesAndLettersOfTheirOwn) {
  In<QPushButton>("BackButton").setEnabled(true);
  In<QPushButton>("KeepButton").setEnabled(true);
  for (const auto& [name, count] : HeardNames(*window)) EXPECT_EQ(count, 1) << name;
  EXPECT_THAT(HeardNames(*window), Not(testing::Contains(Key(""))));
  for (const auto& [letter, count] : Mnemonics(*window)) EXPECT_EQ(count, 1) << letter;
}

TEST_F(RecordFormTest, ShowsTheWordsInTheLanguageOfAList) {
  services.wordLists = folder.Path() + "words/";
  PutFile("words/german.txt", "1\tein\n2\tzwei\n");
  Open();
  EXPECT_THAT(Entries("LanguageBox"), ElementsAre("English", "German", "Another list ..."));
  Choose("LanguageBox", 1);
  EXPECT_EQ(Shown("WordLabel"), "ein");
}

TEST_F(RecordFormTest, TakesAWordListOfOnesOwn) {
  PutFile("dutch.txt", "1\teen\n");
  dialogs.answers = {folder.Path() + "dutch.txt"};
  Choose("LanguageBox", 1);
  EXPECT_EQ(Shown("WordLabel"), "een");
  EXPECT_THAT(Entries("LanguageBox"), ElementsAre("English", "dutch", "Another list ..."));
  EXPECT_EQ(In<QComboBox>("LanguageBox").currentIndex(), 1);
}

TEST_F(RecordFormTest, StaysWithItsWordsWhenAListHasAFault) {
  PutFile("odd.txt", "1\n");
  dialogs.answers = {folder.Path() + "odd.txt"};
  Choose("LanguageBox", 1);
  EXPECT_THAT(dialogs.asked.back(), HasSubstr("odd.txt, line 1"));
  EXPECT_EQ(Shown("WordLabel"), "one");
  EXPECT_EQ(In<QComboBox>("LanguageBox").currentIndex(), 0);
}

TEST_F(RecordFormTest, AsksForTheNamesOfTheWorkoutOrForOneClip) {
  AddExercise("Squat");
  Choose("WhatBox", 2);
  EXPECT_EQ(Shown("WordLabel"), "Squat");
  Open("exercise/Bench Press.WAV");
  EXPECT_EQ(Shown("WordLabel"), "Bench Press");
  EXPECT_EQ(Shown("ProgressLabel"), "1 of 1");
  EXPECT_EQ(In<QComboBox>("WhatBox").currentText(), "Only Bench Press");
}

TEST_F(RecordFormTest, WithNothingToRecordTheFocusIsWhereItCloses) {
  Choose("WhatBox", 2);
  EXPECT_EQ(Shown("WordLabel"), "Nothing to record");
  Open("exercise/Row.WAV");
  recording->Session().Open({});
  EXPECT_EQ(FocusedControl(), "CloseButton");
}

TEST_F(RecordFormTest, RemembersTheMicrophoneAndTheTick) {
  microphone.inputs = {"Webcam", "Headset"};
  Open();
  Choose("MicrophoneBox", 1);
  In<QCheckBox>("ByItselfCheck").click();
  EXPECT_EQ(repvolta::Get(state.Options, kMicrophone), "Headset");
  EXPECT_THAT(GetTextFile("options.conf"), HasSubstr("record-next-by-itself = yes"));
  Open();
  EXPECT_EQ(microphone.opened.back(), "Headset");
  EXPECT_EQ(In<QComboBox>("MicrophoneBox").currentText(), "Headset");
  EXPECT_TRUE(In<QCheckBox>("ByItselfCheck").isChecked());
}

TEST_F(RecordFormTest, FindsAMicrophoneThatIsPluggedIn) {
  microphone.inputs.clear();
  microphone.refusal = "This computer has no microphone.";
  Open();
  EXPECT_EQ(Shown("VerdictLabel"), "This computer has no microphone.");
  EXPECT_EQ(Shown("PhaseLabel"), "Plug in a microphone, or press Space to try again.");
  microphone.inputs = {"Headset"};
  microphone.refusal.clear();
  LookForMicrophones();
  EXPECT_THAT(Entries("MicrophoneBox"), ElementsAre("Headset"));
  EXPECT_EQ(microphone.opened.back(), "Headset");
  EXPECT_TRUE(microphone.IsOpen());
  Say(SpokenSound().Quiet(0.1).Get());
  EXPECT_EQ(Shown("PhaseLabel"), "Press Space, and then say it.");
  EXPECT_EQ(Shown("VerdictLabel"), "");
}

TEST_F(RecordFormTest, SaysInWordsHowLoudTheMicrophoneHears) {
  auto& bar = In<LevelBar>("LevelBar");
  Say(SpokenSound().Word(0.2, -12).Get());
  EXPECT_EQ(bar.Words(), "good");
  Say(SpokenSound().Word(0.2, 4).Get());
  EXPECT_EQ(bar.Words(), "too loud");
  Say(SpokenSound().Quiet(0.2).Get());
  EXPECT_EQ(bar.Words(), "quiet");
  QAccessibleInterface* heard = QAccessible::queryAccessibleInterface(&bar);
  EXPECT_EQ(heard->text(QAccessible::Description), "quiet");
  EXPECT_EQ(heard->valueInterface()->currentValue().toInt(), bar.Percent());
}

TEST_F(RecordFormTest, ShowsAShortWordLargeAndALongNameWhole) {
  const int usual = QFontInfo(window->font()).pixelSize();
  EXPECT_GE(In<LargeLabel>("WordLabel").font().pixelSize(), 5 * usual);
  auto& label = In<LargeLabel>("WordLabel");
  label.ShowText("Single Leg Romanian Deadlift with a Kettlebell on an Unstable Surface, Left");
  const QRect needed =
      label.fontMetrics().boundingRect(label.rect(), Qt::TextWordWrap, label.text());
  EXPECT_LE(needed.height(), label.height());
  EXPECT_GT(label.font().pixelSize(), 2 * usual);
}

TEST_F(RecordFormTest, AsksForAClipThatCannotBeRead) {
  PutFile("voice/1.wav", "one");
  const UnreadableFile clip("voice/1.wav");
  Open();
  EXPECT_EQ(Shown("WordLabel"), "one");
  EXPECT_EQ(Shown("ProgressLabel"), "1 of " + Count());
}

TEST_F(RecordFormTest, OpensAndSaysWhyNothingCanBeKeptWhileTheNotesCannotBeRead) {
  std::filesystem::create_directories("voices/origins.txt");
  Open();
  EXPECT_EQ(Shown("NoticeLabel"),
            "The recordings cannot be changed now. voices/origins.txt could not be read: It is not "
            "a file.");
  Press(Qt::Key_Space);
  Say(GoodWord());
  Press(Qt::Key_Return);
  EXPECT_THAT(Shown("VerdictLabel"), HasSubstr("voice/1.wav could not be changed"));
  EXPECT_THAT(Shown("VerdictLabel"), HasSubstr("It is not a file. Nothing was changed"));
  std::filesystem::remove("voices/origins.txt");
  Press(Qt::Key_Return);
  EXPECT_EQ(Shown("WordLabel"), "two");
  Choose("WhatBox", 0);
  EXPECT_FALSE(In<QLabel>("NoticeLabel").isVisible());
}

TEST_F(RecordFormTest, OpensFromTheMenu) {
  window.reset();
  form->GetVoiceActions().Offer(
      {.player = player, .speech = backgroundSpeech, .microphone = &microphone});
  std::string title;
  WhenModal([&](QWidget& box) {
    title = box.objectName().toStdString();
    box.close();
  });
  Get<QAction>("RecordWordsAction").trigger();
  EXPECT_EQ(title, "RecordForm");
  EXPECT_FALSE(microphone.IsOpen());
}

}  // namespace
}  // namespace repvolta
