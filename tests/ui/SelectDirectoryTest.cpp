#include <QAbstractItemView>
#include <QComboBox>
#include <QFileSystemModel>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollBar>
#include <QTreeView>
#include <QWheelEvent>
#include <QtTest/QTest>
#include <filesystem>
#include <gtest/gtest.h>

#include "ui/SelectDirectory.h"

#include "fakes/FakeVolumes.h"
#include "support/Accessibility.h"
#include "support/FolderFrom.h"
#include "support/Modal.h"
#include "support/ProgramsBeside.h"
#include "support/RunProgram.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

/// The picker, opened at the folder "start" beside the drives "a" and "b".
class SelectDirectoryDialog : public testing::Test {
 protected:
  SelectDirectoryDialog() {
    for (const char* name : {"a/Music", "b", "start/inner"})
      std::filesystem::create_directories(name);
    dialog = std::make_unique<SelectDirectory>(volumes, From(At("start")));
  }

  QString At(const char* name) const { return QString::fromStdString(folder.Path() + name); }
  QComboBox& Drives() { return Find<QComboBox>(*dialog, "DriveListBox"); }
  QTreeView& Folders() { return Find<QTreeView>(*dialog, "DirListBox"); }
  void Click(const char* button) { Find<QPushButton>(*dialog, button).click(); }
  std::string Accepted() {
    Click("OKButton");
    return dialog->SelectedDirectory();
  }
  /// Answers the box that asks for the name of the new folder.
  void MakeFolder(const QString& name, const std::function<void()>& beforeTheAnswer = [] {}) {
    WhenModal([=](QWidget& box) {
      EXPECT_EQ(Find<QLabel>(box, "PromptLabel").text(), "Enter a name for the new folder");
      QTest::keyClicks(&Find<QLineEdit>(box, "AnswerBox"), name);
      beforeTheAnswer();
      QTest::keyClick(&box, Qt::Key_Return);
    });
    Click("NewFolderButton");
  }
  /// What the box says that follows the answer.
  QString RefusalOf(const QString& name) {
    QString message;
    MakeFolder(name, [&] {
      WhenModal([&](QWidget& box) {
        message = dynamic_cast<QMessageBox&>(box).text();
        box.close();
      });
    });
    return message;
  }

  TemporaryFolder folder;
  FakeVolumes volumes{{"/", folder.Path() + "a", folder.Path() + "b"}};
  std::unique_ptr<SelectDirectory> dialog;
};

TEST_F(SelectDirectoryDialog, OpensAtTheGivenFolder) {
  EXPECT_EQ(Find<QLabel>(*dialog, "SelectedFolderLabel").text(), At("start"));
  EXPECT_EQ(Accepted(), folder.Path() + "start");
}

TEST_F(SelectDirectoryDialog, OpensAtTheNearestFolderThatExists) {
  SelectDirectory other(volumes, From(At("start/gone/deeper")));
  Find<QPushButton>(other, "OKButton").click();
  EXPECT_EQ(other.SelectedDirectory(), folder.Path() + "start");
}

/// The picker, opened deep below a folder with many entries.
class SelectDirectoryDeepDown : public testing::Test {
 protected:
  static constexpr int kMany = 150;
  static constexpr const char* kDeep = "home 175/one/two/here";

  SelectDirectoryDeepDown() {
    // They are created in another order than they are shown in.
    for (int i = 0; i < kMany; ++i) {
      std::filesystem::create_directories("home " + std::to_string(100 + i * 67 % kMany) +
                                          "/inner");
    }
    std::filesystem::create_directories(std::string(kDeep) + "/Music");
  }

  void Open() {
    dialog = std::make_unique<SelectDirectory>(volumes, From(At(kDeep)));
    dialog->show();
    folders = dialog->findChild<QTreeView*>("DirListBox");
    QAbstractItemModel& model = *folders->model();
    const QPersistentModelIndex home = folders->currentIndex().parent().parent().parent();
    ASSERT_TRUE(QTest::qWaitFor([&] {
      return model.rowCount(home.parent()) == kMany && Sorted(home.parent()) &&
             model.rowCount(folders->currentIndex()) == 1;
    }));
  }

  QString At(const char* name) const { return QString::fromStdString(folder.Path() + name); }

  bool Sorted(const QModelIndex& parent) const {
    const QAbstractItemModel& model = *folders->model();
    return model.index(0, 0, parent).data() == "home 100" &&
           model.index(kMany - 1, 0, parent).data() == "home 249";
  }

  bool InSight(const QModelIndex& index) const {
    const QRect place = folders->visualRect(index);
    return !place.isEmpty() && folders->viewport()->rect().contains(place.center());
  }

  TemporaryFolder folder;
  FakeVolumes volumes{std::vector<std::string>{"/"}};
  std::unique_ptr<SelectDirectory> dialog;
  QTreeView* folders = nullptr;
};

TEST_F(SelectDirectoryDeepDown, ShowsTheFolderAndWhatIsInItOnceAllIsRead) {
  ASSERT_NO_FATAL_FAILURE(Open());
  const QModelIndex current = folders->currentIndex();
  EXPECT_EQ(current.data(), "here");
  EXPECT_TRUE(QTest::qWaitFor([&] { return InSight(current); }));
  EXPECT_TRUE(InSight(folders->model()->index(0, 0, current)));
}

TEST_F(SelectDirectoryDeepDown, KeepsTheFolderInSightWhenFoldersAppearAboveIt) {
  ASSERT_NO_FATAL_FAILURE(Open());
  const QModelIndex above = folders->currentIndex().parent().parent().parent().parent();
  for (int i = 0; i < kMany; ++i) std::filesystem::create_directory("a " + std::to_string(i));
  ASSERT_TRUE(
      QTest::qWaitFor([&] { return folders->model()->rowCount(above) == 2 * kMany; }, 20'000));
  EXPECT_TRUE(QTest::qWaitFor([&] { return InSight(folders->currentIndex()); }));
}

TEST_F(SelectDirectoryDeepDown, StaysWhereThePersonScrolledTo) {
  ASSERT_NO_FATAL_FAILURE(Open());
  QScrollBar& bar = *folders->verticalScrollBar();
  bar.triggerAction(QScrollBar::SliderToMinimum);
  const int place = bar.value();
  Q_EMIT dynamic_cast<QFileSystemModel&>(*folders->model()).directoryLoaded(At(kDeep));
  EXPECT_EQ(bar.value(), place);
  EXPECT_FALSE(InSight(folders->currentIndex()));
}

TEST_F(SelectDirectoryDeepDown, StaysWithTheFolderThatThePersonOpened) {
  ASSERT_NO_FATAL_FAILURE(Open());
  const QModelIndex parent = folders->currentIndex().parent().parent().parent();
  folders->collapse(parent);
  Q_EMIT dynamic_cast<QFileSystemModel&>(*folders->model()).directoryLoaded(At(kDeep));
  EXPECT_FALSE(folders->isExpanded(parent));
}

TEST_F(SelectDirectoryDialog, GivesNothingWhenItIsCancelled) {
  Click("CancelButton");
  EXPECT_EQ(dialog->SelectedDirectory(), "");
}

TEST_F(SelectDirectoryDialog, GivesNothingOnEscape) {
  dialog->show();
  QTest::keyClick(dialog.get(), Qt::Key_Escape);
  EXPECT_FALSE(dialog->isVisible());
  EXPECT_EQ(dialog->SelectedDirectory(), "");
}

TEST_F(SelectDirectoryDialog, ListsNoFiles) {
  PutFile("b/song.mp3", "");
  std::filesystem::create_directories("b/inner");
  Drives().setCurrentIndex(2);
  QAbstractItemModel& model = *Folders().model();
  const QPersistentModelIndex shown = Folders().currentIndex();
  ASSERT_TRUE(QTest::qWaitFor([&] { return model.rowCount(shown) > 0; }));
  EXPECT_EQ(model.rowCount(shown), 1);
  EXPECT_EQ(model.index(0, 0, shown).data(), "inner");
}

TEST_F(SelectDirectoryDialog, ListsTheDrivesAndSelectsTheOneOfTheFolder) {
  EXPECT_EQ(Drives().count(), 3);
  EXPECT_EQ(Drives().currentText(), "/");
  SelectDirectory other(volumes, From(At("a/Music")));
  EXPECT_EQ(Find<QComboBox>(other, "DriveListBox").currentText(), At("a"));
}

TEST_F(SelectDirectoryDialog, PointsAtTheChosenDrive) {
  Drives().setCurrentIndex(2);
  EXPECT_EQ(Accepted(), folder.Path() + "b");
}

TEST_F(SelectDirectoryDialog, GivesTheFolderThatIsChosenWithTheKeyboard) {
  dialog->show();
  Folders().setFocus();
  ASSERT_TRUE(
      QTest::qWaitFor([&] { return Folders().model()->rowCount(Folders().currentIndex()) == 1; }));
  QTest::keyClick(&Folders(), Qt::Key_Down);
  QTest::keyClick(&Folders(), Qt::Key_Return);
  EXPECT_FALSE(dialog->isVisible());
  EXPECT_EQ(dialog->SelectedDirectory(), folder.Path() + "start/inner");
}

TEST_F(SelectDirectoryDialog, MakesANewFolderAndSelectsIt) {
  MakeFolder("Player");
  EXPECT_TRUE(std::filesystem::is_directory("start/Player"));
  EXPECT_EQ(Accepted(), folder.Path() + "start/Player");
}

TEST_F(SelectDirectoryDialog, MakesNoFolderThatEndsInABlank) {
  MakeFolder(" Player ");
  EXPECT_EQ(Accepted(), folder.Path() + "start/Player");
}

TEST_F(SelectDirectoryDialog, TheWheelDoesNotChangeTheDriveWithoutTheFocus) {
  dialog->show();
  Folders().setFocus();
  const QPointF place = Drives().rect().center();
  QWheelEvent roll(place, Drives().mapToGlobal(place), {}, {0, -120}, Qt::NoButton, {},
                   Qt::NoScrollPhase, false);
  QApplication::sendEvent(&Drives(), &roll);
  EXPECT_EQ(Drives().currentText(), "/");
  EXPECT_EQ(Drives().focusPolicy(), Qt::StrongFocus);
}

TEST_F(SelectDirectoryDialog, MakesNoFolderWithoutAName) {
  for (const char* name : {"", "  "}) MakeFolder(name);
  EXPECT_EQ(Accepted(), folder.Path() + "start");
}

TEST_F(SelectDirectoryDialog, RefusesANameThatIsNone) {
  EXPECT_EQ(RefusalOf("../x"), "\"../x\" cannot be the name of a folder.");
  EXPECT_FALSE(std::filesystem::exists("x"));
}

TEST_F(SelectDirectoryDialog, SaysWhenTheFolderCannotBeMade) {
  EXPECT_EQ(RefusalOf("inner"), "The folder " + At("start/inner") + " could not be made.");
  EXPECT_EQ(Accepted(), folder.Path() + "start");
}

TEST_F(SelectDirectoryDialog, GivesNamesWithAccentsAndJapaneseAsTheyAreOnDisk) {
  std::filesystem::create_directories("Müsik/音楽");
  SelectDirectory other(volumes, From(At("Müsik/音楽")));
  Find<QPushButton>(other, "OKButton").click();
  EXPECT_EQ(other.SelectedDirectory(), folder.Path() + "Müsik/音楽");
}

TEST_F(SelectDirectoryDialog, IsHeardByDistinctNames) {
  EXPECT_EQ(HeardNames(*dialog),
            (std::map<std::string, int>{
                {"Cancel", 1}, {"Drive", 1}, {"Folder", 1}, {"New Folder...", 1}, {"OK", 1}}));
}

TEST_F(SelectDirectoryDialog, HasNoMnemonicTwice) {
  for (const auto& [letter, count] : Mnemonics(*dialog)) EXPECT_EQ(count, 1) << letter;
}

/// The picker with a player among the drives, which can be plugged in and pulled out.
class SelectDirectoryWithPlayers : public SelectDirectoryDialog {
 protected:
  Volume Fixed(const char* name) const { return {.root = folder.Path() + name}; }
  Volume Player(const char* name, std::uint64_t freeBytes = 3'200'000'000) const {
    return {.root = folder.Path() + name,
            .label = name,
            .kind = Volume::Kind::kRemovable,
            .freeBytes = freeBytes};
  }
  Volume Root() const { return {.root = "/"}; }

  std::vector<std::string> Texts() {
    std::vector<std::string> texts;
    for (int i = 0; i < Drives().count(); ++i) texts.push_back(Drives().itemText(i).toStdString());
    return texts;
  }
  std::string Selected() {
    return Find<QLabel>(*dialog, "SelectedFolderLabel").text().toStdString();
  }
};

using Names = std::vector<std::string>;

TEST_F(SelectDirectoryWithPlayers, ShowsTheirLabelsAndTheirPathsAsToolTips) {
  volumes.ChangeTo({Root(), Player("b")});
  EXPECT_EQ(Texts(), (Names{"/", "b (3.2 GB free)"}));
  EXPECT_EQ(Drives().itemData(1, Qt::ToolTipRole), At("b"));
}

TEST_F(SelectDirectoryWithPlayers, PointsAtTheFolderOfTheChosenOne) {
  volumes.ChangeTo({Root(), Player("b")});
  Drives().setCurrentIndex(1);
  EXPECT_EQ(Accepted(), folder.Path() + "b");
}

TEST_F(SelectDirectoryWithPlayers, KeepsWhatIsSelectedWhenOneIsPluggedIn) {
  Drives().setCurrentIndex(2);
  std::filesystem::create_directory("aa");
  volumes.ChangeTo({Root(), Fixed("a"), Player("aa"), Fixed("b")});
  EXPECT_EQ(Texts(),
            (Names{"/", At("a").toStdString(), "aa (3.2 GB free)", At("b").toStdString()}));
  EXPECT_EQ(Drives().currentText(), At("b"));
  EXPECT_EQ(Accepted(), folder.Path() + "b");
}

TEST_F(SelectDirectoryWithPlayers, KeepsAnOpenedFolderWhenAnotherIsPulledOut) {
  Drives().setCurrentIndex(1);
  const QModelIndex opened = Folders().currentIndex();
  volumes.ChangeTo({Root(), Fixed("a")});
  EXPECT_EQ(Texts(), (Names{"/", At("a").toStdString()}));
  EXPECT_EQ(Drives().currentText(), At("a"));
  EXPECT_EQ(Folders().currentIndex(), opened);
  EXPECT_TRUE(Folders().isExpanded(opened));
}

TEST_F(SelectDirectoryWithPlayers, ShowsTheNearestFolderThatIsLeftWhenTheSelectedOneIsPulledOut) {
  std::filesystem::create_directories("b/Music");
  SelectDirectory other(volumes, From(At("b/Music")));
  std::filesystem::remove_all("b");
  volumes.ChangeTo({Root(), Fixed("a")});
  EXPECT_EQ(Find<QLabel>(other, "SelectedFolderLabel").text().toStdString() + "/", folder.Path());
  EXPECT_EQ(Find<QComboBox>(other, "DriveListBox").currentText(), "/");
}

TEST_F(SelectDirectoryWithPlayers, CountsAnewInTheFolderWhereOneIsPulledOut) {
  PutFile("b/one.mp3", "");
  SelectDirectory other(volumes, From(At("b")));
  const auto& figure = Find<QLabel>(other, "FigureLabel");
  ASSERT_TRUE(QTest::qWaitFor([&] { return figure.text() == "Songs in it and below it: 1"; }));
  // The folder on which a disk was mounted stays, and shows what it held before.
  std::filesystem::remove("b/one.mp3");
  volumes.ChangeTo({Root(), Fixed("a")});
  EXPECT_EQ(figure.text(), "");
  EXPECT_TRUE(QTest::qWaitFor([&] { return figure.text() == "Songs in it and below it: 0"; }));
}

TEST_F(SelectDirectoryWithPlayers, ShowsTheRoomThatIsLeftNow) {
  volumes.ChangeTo({Root(), Player("b")});
  Drives().setCurrentIndex(1);
  volumes.ChangeTo({Root(), Player("b", 1'000'000)});
  EXPECT_EQ(Drives().currentText(), "b (1.0 MB free)");
  EXPECT_EQ(Selected(), folder.Path() + "b");
}

TEST_F(SelectDirectoryWithPlayers, DoesNotOfferADriveThatDoesNotAnswer) {
  dialog->show();
  Volume silent = Fixed("a");
  silent.state = Volume::State::kSilent;
  volumes.ChangeTo({Root(), silent, Fixed("b")});
  Drives().setFocus();
  QTest::keyClick(&Drives(), Qt::Key_Down);
  EXPECT_EQ(Drives().currentText(), At("b"));
  volumes.ChangeTo({Root(), Fixed("a"), Fixed("b")});
  QTest::keyClick(&Drives(), Qt::Key_Up);
  EXPECT_EQ(Drives().currentText(), At("a"));
}

TEST_F(SelectDirectoryWithPlayers, KeepsItsOpenListOpen) {
  dialog->show();
  Drives().showPopup();
  volumes.ChangeTo({Root(), Fixed("a"), Player("aa"), Fixed("b")});
  EXPECT_TRUE(Drives().view()->isVisible());
  EXPECT_EQ(Drives().view()->model()->rowCount(), 4);
}

TEST_F(SelectDirectoryWithPlayers, TakesNoNoticeOnceItIsClosed) {
  dialog.reset();
  volumes.ChangeTo({Root(), Player("b")});
}

TEST(SelectDirectory, FollowsRealMountsAndIsNotHeldUpByOneThatHangs) {
  const TemporaryFolder folder;
  const ProgramRun run = RunWithMounts("true", {ProgramBeside("picker_at_work")});
  EXPECT_EQ(run.output,
            "offered: mnt\n"
            "selected: start\n"
            "listed: Music\n"
            "offered: hung (does not answer)\n"
            "selected: mnt\n"
            "gone: mnt\n"
            "selected: mnt\n"
            "closed\n");
  EXPECT_EQ(run.status, 0) << run.errors;
}

}  // namespace
}  // namespace repvolta
