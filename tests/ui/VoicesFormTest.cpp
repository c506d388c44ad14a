#include <QAction>
#include <QPlainTextEdit>
#include <QPushButton>

#include "clips/ClipSound.h"
#include "clips/WordClips.h"
#include "sound/Sound.h"
#include "ui/RowTable.h"
#include "ui/VoicesForm.h"

#include "support/Accessibility.h"
#include "support/FormFixture.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Pair;
using testing::StartsWith;

Bytes Tone(float amplitude) {
  Sound sound{.rate = kClipFormat.rate, .samples = {}};
  for (int i = 0; i < 4000; ++i) sound.samples.push_back(i % 40 < 20 ? amplitude : -amplitude);
  return EncodeWav(sound, kClipFormat);
}

/// The program's voice is in use; "Kim" can say 300.
class VoicesWindow : public FormFixture {
 protected:
  VoicesWindow() {
    for (const std::string& word : WordClips()) {
      PutFile("program/" + word, Tone(0.2F));
      PutFile("voice/" + word, Tone(0.2F));
    }
    PutFile("voices/Kim/300.wav", Tone(0.21F));
  }

  void Open() {
    window = std::make_unique<VoicesForm>(services);
    window->show();
    window->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
  }

  RowTable& Voices() { return Find<RowTable>(*window, "VoicesTable"); }
  QPushButton& Button(const char* name) { return Find<QPushButton>(*window, name); }
  std::string About() {
    return Find<QPlainTextEdit>(*window, "AboutText").toPlainText().toStdString();
  }
  std::string Cell(int row, int column) {
    return Voices().model()->index(row, column).data().toString().toStdString();
  }
  void Press(const char* name) { QTest::keyClick(&Button(name), Qt::Key_Space); }

  VoiceServices services{.editor = form->GetEditor(),
                         .player = player,
                         .speech = backgroundSpeech,
                         .output = [] { return ChosenOutput{}; },
                         .programVoice = "program/"};
  std::unique_ptr<VoicesForm> window;
};

TEST_F(VoicesWindow, BeginsAtTheVoiceInUse) {
  Open();
  EXPECT_TRUE(Voices().hasFocus());
  EXPECT_EQ(Voices().SelectedRow(), 0);
  EXPECT_EQ(Cell(0, 0), "The program's voice");
  EXPECT_EQ(Cell(0, 1), "in use");
  EXPECT_THAT(About(), StartsWith("It has all words."));
  EXPECT_FALSE(Button("UseButton").isEnabled());
  EXPECT_FALSE(Button("RemoveButton").isEnabled());
}

TEST_F(VoicesWindow, SaysWhatTheSelectedVoiceLacks) {
  Open();
  QTest::keyClick(&Voices(), Qt::Key_Down);
  EXPECT_THAT(About(), StartsWith("It lacks "));
  EXPECT_THAT(About(), HasSubstr(": 1, 2, 3, "));
  EXPECT_TRUE(Button("RenameButton").isEnabled());
}

TEST_F(VoicesWindow, UsesAVoiceByKeyboardAlone) {
  Open();
  QTest::keyClick(&Voices(), Qt::Key_Down);
  QTest::keyClick(&Voices(), Qt::Key_Return);
  EXPECT_TRUE(Button("UseButton").hasFocus());
  QTest::keyClick(&Button("UseButton"), Qt::Key_Space);
  EXPECT_EQ(Cell(1, 1), "in use");
  EXPECT_EQ(Voices().SelectedRow(), 1);
  EXPECT_EQ(GetFile("voice/300.wav"), Tone(0.21F));
  EXPECT_FALSE(Button("RenameButton").isEnabled());
  EXPECT_FALSE(Button("RemoveButton").isEnabled());
}

TEST_F(VoicesWindow, SelectsAVoiceThatWasTakenIn) {
  PutFile("new/400.wav", Tone(0.2F));
  Open();
  dialogs.answers = {"new", "Sam", "OK"};
  Press("TakeInFolderButton");
  EXPECT_EQ(Voices().SelectedRow(), 2);
  EXPECT_EQ(Cell(2, 0), "Sam");
}

TEST_F(VoicesWindow, SaysWhyAZipFileIsRefused) {
  PutFile("bad.zip", "no zip");
  Open();
  dialogs.answers = {folder.Path() + "bad.zip"};
  Press("TakeInZipButton");
  EXPECT_THAT(dialogs.asked.back(), HasSubstr("bad.zip is no voice that can be taken in: "));
  EXPECT_EQ(Voices().model()->rowCount(), 2);
}

TEST_F(VoicesWindow, RenamesAndRemovesTheSelectedVoice) {
  Open();
  QTest::keyClick(&Voices(), Qt::Key_Down);
  dialogs.answers = {"Sam", "OK"};
  Press("RenameButton");
  EXPECT_EQ(Cell(1, 0), "Sam");
  EXPECT_EQ(Voices().SelectedRow(), 1);
  Press("RemoveButton");
  EXPECT_EQ(Voices().model()->rowCount(), 1);
}

TEST_F(VoicesWindow, PlaysASentenceUntilItEndsOrIsStopped) {
  Open();
  Press("ListenButton");
  EXPECT_TRUE(player.IsPlaying());
  EXPECT_EQ(Button("ListenButton").text(), "Stop &Listening");
  player.End();
  EXPECT_EQ(Button("ListenButton").text(), "&Listen");
  Press("ListenButton");
  Press("ListenButton");
  EXPECT_FALSE(player.IsPlaying());
  Press("ListenButton");
  window->reject();
  EXPECT_FALSE(player.IsPlaying());
}

TEST_F(VoicesWindow, ShowsWhatACheckHasFound) {
  Open();
  QTest::keyClick(&Voices(), Qt::Key_Down);
  Press("CheckButton");
  EXPECT_THAT(About(), HasSubstr("1 word and 0 names, at "));
  EXPECT_THAT(About(), HasSubstr("\n1.wav is missing\n"));
}

TEST_F(VoicesWindow, WritesOutTheSelectedVoice) {
  Open();
  QTest::keyClick(&Voices(), Qt::Key_Down);
  dialogs.answers = {"Its own clips, 1 clip, as a ZIP file", "OK", folder.Path() + "k.zip"};
  Press("WriteOutButton");
  EXPECT_TRUE(fs::exists("k.zip"));
}

TEST_F(VoicesWindow, HasANameAndAMnemonicForEachControl) {
  Open();
  EXPECT_THAT(HeardNames(*window), Each(Pair(testing::Not(""), 1)));
  EXPECT_THAT(Mnemonics(*window), Each(Pair(testing::_, 1)));
  for (const char* button :
       {"UseButton", "ListenButton", "CheckButton", "TakeInFolderButton", "TakeInZipButton",
        "WriteOutButton", "RenameButton", "RemoveButton", "CloseButton"}) {
    EXPECT_FALSE(QKeySequence::mnemonic(Button(button).text()).isEmpty()) << button;
  }
}

TEST_F(VoicesWindow, IsOpenedByTheMenu) {
  QAction* action = form->findChild<QAction*>("VoicesAction");
  ASSERT_NE(action, nullptr);
  bool isShown = false;
  WhenModal([&](QWidget& box) {
    isShown = box.objectName() == "VoicesForm";
    box.close();
  });
  action->trigger();
  EXPECT_TRUE(isShown);
}

}  // namespace
}  // namespace repvolta
