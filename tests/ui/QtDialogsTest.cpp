#include <QComboBox>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QtTest/QTest>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editing/FolderQuestions.h"
#include "ui/QtDialogs.h"

#include "support/Modal.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class QtDialogsTest : public testing::Test {
 protected:
  TemporaryFolder folder;
  QtDialogs dialogs;
};

TEST_F(QtDialogsTest, ShowMessages) {
  QString text;
  QString title;
  WhenModal([&](QWidget& box) {
    text = dynamic_cast<QMessageBox&>(box).text();
    title = box.windowTitle();
    box.close();
  });
  dialogs.ShowMessage("Développé");
  EXPECT_EQ(text, "Développé");
  EXPECT_EQ(title, "Repvolta");
}

TEST_F(QtDialogsTest, AskForOkOrCancel) {
  QString title;
  WhenModal([&](QWidget& box) {
    title = box.windowTitle();
    QTest::keyClick(&box, Qt::Key_Return);
  });
  EXPECT_TRUE(dialogs.Confirm("Sure?", "Remove Set"));
  EXPECT_EQ(title, "Remove Set");
}

TEST_F(QtDialogsTest, AskForTexts) {
  WhenModal([](QWidget& box) {
    EXPECT_EQ(box.windowTitle(), "New Workout");
    EXPECT_EQ(Find<QLabel>(box, "PromptLabel").text(), "Enter a name for the new Workout");
    Find<QLineEdit>(box, "AnswerBox").setText("月曜日");
    QTest::keyClick(&box, Qt::Key_Return);
  });
  EXPECT_EQ(dialogs.AskText("Enter a name for the new Workout", "New Workout", {}), "月曜日");
}

TEST_F(QtDialogsTest, SelectAnExerciseFromTheListsOfTheProgramDirectory) {
  PutFile("exercise/Weights.lst", "Bench Press\nSquat\n");
  WhenModal([](QWidget& box) {
    Find<QListWidget>(box, "ExerciseTypeList").setCurrentRow(0);
    Find<QListWidget>(box, "ExerciseNameList").setCurrentRow(1);
    Find<QPushButton>(box, "OKButton").click();
  });
  EXPECT_EQ(dialogs.SelectExercise(), "Squat");
}

TEST_F(QtDialogsTest, SelectNoExerciseWhenCancelled) {
  WhenModal([](QWidget& box) { box.close(); });
  EXPECT_EQ(dialogs.SelectExercise(), "");
}

TEST_F(QtDialogsTest, TellWhenAnExerciseListHasVanished) {
  PutFile("exercise/Weights.lst", "Squat\n");
  QString text;
  WhenModal([&](QWidget& box) {
    std::filesystem::remove("exercise/Weights.lst");
    WhenModal([&](QWidget& message) {
      text = dynamic_cast<QMessageBox&>(message).text();
      message.close();
    });
    Find<QListWidget>(box, "ExerciseTypeList").setCurrentRow(0);
    box.close();
  });
  EXPECT_EQ(dialogs.SelectExercise(), "");
  EXPECT_TRUE(text.contains("Weights.lst")) << text.toStdString();
}

TEST_F(QtDialogsTest, SelectADirectoryFromTheHomeFolderOn) {
  WhenModal([](QWidget& box) { Find<QPushButton>(box, "OKButton").click(); });
  EXPECT_EQ(dialogs.SelectDirectory(MusicFolderQuestion({})), QDir::homePath().toStdString());
}

TEST_F(QtDialogsTest, SelectNoDirectoryWhenCancelled) {
  WhenModal([](QWidget& box) { box.close(); });
  EXPECT_EQ(dialogs.SelectDirectory(MusicFolderQuestion({})), "");
}

TEST_F(QtDialogsTest, SelectAMusicFile) {
  PutFile("Läufe/走る.MP3", "x");
  WhenModal([](QWidget& box) {
    Find<QLineEdit>(box, "fileNameEdit").setText("走る.MP3");
    QTest::keyClick(&box, Qt::Key_Return);
  });
  EXPECT_THAT(dialogs.SelectMusicFiles(folder.Path() + "Läufe"),
              ElementsAre(folder.Path() + "Läufe/走る.MP3"));
}

/// The folder in which the dialog begins when it is opened for this music path; it is closed with
/// one song, if any.
QString BeginOf(QtDialogs& dialogs, const std::string& musicPath, const QString& song = {}) {
  QString begin;
  WhenModal([&](QWidget& box) {
    begin = dynamic_cast<QFileDialog&>(box).directory().path();
    if (song.isEmpty()) {
      box.close();
      return;
    }
    Find<QLineEdit>(box, "fileNameEdit").setText(song);
    QTest::keyClick(&box, Qt::Key_Return);
  });
  dialogs.SelectMusicFiles(musicPath);
  return begin;
}

TEST_F(QtDialogsTest, BeginWhereSongsWerePickedLast) {
  PutFile("music/a.mp3", "x");
  PutFile("music/deep/b.mp3", "x");
  PutFile("other/c.mp3", "x");
  const std::string music = folder.Path() + "music";
  const QString deep = QString::fromStdString(music + "/deep");
  QtDialogs first(folder.Path() + "window.ini");
  EXPECT_EQ(BeginOf(first, music, deep + "/b.mp3").toStdString(), music);

  QtDialogs next(folder.Path() + "window.ini");

  EXPECT_EQ(BeginOf(next, music), deep);
  EXPECT_EQ(BeginOf(next, music), deep) << "cancelled";
  EXPECT_EQ(BeginOf(next, folder.Path() + "other").toStdString(), folder.Path() + "other")
      << "a new music path";
}

TEST_F(QtDialogsTest, BeginInTheMusicPathWhenTheLastFolderIsGone) {
  PutFile("music/deep/b.mp3", "x");
  const std::string music = folder.Path() + "music";
  QtDialogs kept(folder.Path() + "window.ini");
  BeginOf(kept, music, QString::fromStdString(music + "/deep/b.mp3"));
  std::filesystem::remove_all(music + "/deep");
  EXPECT_EQ(BeginOf(kept, music).toStdString(), music);
}

TEST_F(QtDialogsTest, RememberTheSizeOfTheMusicDialog) {
  QtDialogs kept(folder.Path() + "window.ini");
  WhenModal([](QWidget& box) {
    box.resize(640, 444);
    box.close();
  });
  kept.SelectMusicFiles(folder.Path());
  QSize size;
  WhenModal([&](QWidget& box) {
    size = box.size();
    box.close();
  });
  kept.SelectMusicFiles(folder.Path());
  EXPECT_EQ(size, QSize(640, 444));
}

TEST_F(QtDialogsTest, HaveAMusicDialogThatFitsOnASmallScreenAtDoubleSize) {
  QSize least;
  WhenModal([&](QWidget& box) {
    least = box.minimumSizeHint();
    box.close();
  });
  dialogs.SelectMusicFiles(folder.Path());
  // 1024 x 768 at 200 %, without the frame of the window.
  EXPECT_LE(least.width(), 496);
  EXPECT_LE(least.height(), 344);
}

TEST_F(QtDialogsTest, SelectNoMusicFileWhenCancelled) {
  WhenModal([](QWidget& box) { box.close(); });
  EXPECT_THAT(dialogs.SelectMusicFiles(folder.Path()), IsEmpty());
}

TEST_F(QtDialogsTest, SelectSeveralMusicFilesAtOnce) {
  PutFile("a.mp3", "x");
  PutFile("b c.mp3", "x");
  WhenModal([](QWidget& box) {
    Find<QLineEdit>(box, "fileNameEdit").setText("\"a.mp3\" \"b c.mp3\"");
    QTest::keyClick(&box, Qt::Key_Return);
  });
  EXPECT_THAT(dialogs.SelectMusicFiles(folder.Path()),
              ElementsAre(folder.Path() + "a.mp3", folder.Path() + "b c.mp3"));
}

TEST_F(QtDialogsTest, OfferMp3AndWmaFilesInAnyCase) {
  for (const char* name : {"a.mp3", "b.MP3", "c.wma", "d.wav"}) PutFile(name, "x");
  QStringList shown;
  WhenModal([&](QWidget& box) {
    auto& dialog = dynamic_cast<QFileDialog&>(box);
    EXPECT_EQ(dialog.windowTitle(), "Music File Selection");
    EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFiles);
    EXPECT_EQ(Find<QComboBox>(box, "fileTypeCombo").itemText(0), "MP3");
    EXPECT_EQ(Find<QComboBox>(box, "fileTypeCombo").itemText(1), "WMA");
    auto& model = *box.findChild<QFileSystemModel*>();
    const QModelIndex root = model.index(dialog.directory().path());
    EXPECT_TRUE(QTest::qWaitFor([&] { return model.rowCount(root) == 2; }));
    for (int row = 0; row < model.rowCount(root); ++row) {
      shown << model.index(row, 0, root).data().toString();
    }
    box.close();
  });
  dialogs.SelectMusicFiles(folder.Path());
  shown.sort();
  EXPECT_EQ(shown, (QStringList{"a.mp3", "b.MP3"}));
}

TEST_F(QtDialogsTest, LeaveTheKindOfMusicFileToMoreThanTheWheel) {
  WhenModal([](QWidget& box) {
    EXPECT_EQ(Find<QComboBox>(box, "fileTypeCombo").focusPolicy(), Qt::StrongFocus);
    box.close();
  });
  dialogs.SelectMusicFiles(folder.Path());
}

TEST_F(QtDialogsTest, ShowTheAboutBox) {
  QString name;
  WhenModal([&](QWidget& box) {
    name = box.objectName();
    box.close();
  });
  dialogs.ShowAbout();
  EXPECT_EQ(name, "AboutForm");
}

}  // namespace
}  // namespace repvolta
