#include <QComboBox>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeView>
#include <QtTest/QTest>
#include <filesystem>
#include <gtest/gtest.h>

#include "ui/SelectDirectory.h"

#include "support/Accessibility.h"
#include "support/Modal.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

/// The picker, opened at the folder "start" beside the drives "a" and "b".
class SelectDirectoryDialog : public testing::Test {
 protected:
  SelectDirectoryDialog() {
    for (const char* name : {"a/Music", "b", "start/inner"})
      std::filesystem::create_directories(name);
    dialog = std::make_unique<SelectDirectory>(QStringList{"/", At("a"), At("b")}, At("start"));
  }

  QString At(const char* name) const { return QString::fromStdString(folder.Path() + name); }
  QComboBox& Drives() { return Find<QComboBox>(*dialog, "DriveListBox"); }
  QTreeView& Folders() { return Find<QTreeView>(*dialog, "DirListBox"); }
  void Click(const char* button) { Find<QPushButton>(*dialog, button).click(); }
  std::string Accepted() {
    Click("OKButton");
    return dialog->SelectedDirectory();
  }

  TemporaryFolder folder;
  std::unique_ptr<SelectDirectory> dialog;
};

TEST_F(SelectDirectoryDialog, OpensAtTheGivenFolder) {
  EXPECT_EQ(Find<QLabel>(*dialog, "SelectedFolderLabel").text(), At("start"));
  EXPECT_EQ(Accepted(), folder.Path() + "start");
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

TEST_F(SelectDirectoryDialog, ListsTheDrivesAndSelectsTheOneOfTheFolder) {
  EXPECT_EQ(Drives().count(), 3);
  EXPECT_EQ(Drives().currentText(), "/");
  SelectDirectory other({"/", At("a"), At("b")}, At("a/Music"));
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
  dialog->SetAskName([] { return QString("Player"); });
  Click("NewFolderButton");
  EXPECT_TRUE(std::filesystem::is_directory("start/Player"));
  EXPECT_EQ(Accepted(), folder.Path() + "start/Player");
}

TEST_F(SelectDirectoryDialog, MakesNoFolderWithoutAName) {
  for (const char* name : {"", "  "}) {
    dialog->SetAskName([&] { return QString(name); });
    Click("NewFolderButton");
  }
  EXPECT_EQ(Accepted(), folder.Path() + "start");
}

TEST_F(SelectDirectoryDialog, RefusesANameThatIsNone) {
  QString message;
  WhenModal([&](QWidget& box) {
    message = dynamic_cast<QMessageBox&>(box).text();
    box.close();
  });
  dialog->SetAskName([] { return QString("../x"); });
  Click("NewFolderButton");
  EXPECT_EQ(message, "\"../x\" cannot be the name of a folder.");
  EXPECT_FALSE(std::filesystem::exists("x"));
}

TEST_F(SelectDirectoryDialog, SaysWhenTheFolderCannotBeMade) {
  QString message;
  WhenModal([&](QWidget& box) {
    message = dynamic_cast<QMessageBox&>(box).text();
    box.close();
  });
  dialog->SetAskName([] { return QString("inner"); });
  Click("NewFolderButton");
  EXPECT_EQ(message, "The folder " + At("start/inner") + " could not be made.");
  EXPECT_EQ(Accepted(), folder.Path() + "start");
}

TEST_F(SelectDirectoryDialog, GivesNamesWithAccentsAndJapaneseAsTheyAreOnDisk) {
  std::filesystem::create_directories("Müsik/音楽");
  SelectDirectory other({"/"}, At("Müsik/音楽"));
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

TEST(MountedVolumes, BeginWithTheRoot) {
  const QStringList volumes = MountedVolumes();
  ASSERT_FALSE(volumes.isEmpty());
  EXPECT_EQ(volumes.first(), "/");
  EXPECT_EQ(volumes.count("/"), 1);
}

TEST(MountedVolumes, LeaveOutTheMachinesOwn) {
  EXPECT_FALSE(MountedVolumes().contains("/proc"));
  EXPECT_FALSE(MountedVolumes().contains("/sys"));
}

}  // namespace
}  // namespace repvolta
