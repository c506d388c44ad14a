#include <QDir>
#include <QFileSystemModel>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QTreeView>
#include <QtTest/QTest>
#include <filesystem>
#include <gtest/gtest.h>

#include "editing/FolderQuestions.h"
#include "ui/SelectDirectory.h"

#include "fakes/FakeVolumes.h"
#include "support/FolderFrom.h"
#include "support/Modal.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

/// What the folder picker says; it is opened at the folder "start" beside the drive "a".
class FolderPickerTexts : public testing::Test {
 protected:
  FolderPickerTexts() {
    for (const char* name : {"a/Music", "start/inner"}) std::filesystem::create_directories(name);
    dialog = std::make_unique<SelectDirectory>(volumes, From(At("start")));
  }

  QString At(const char* name) const { return QString::fromStdString(folder.Path() + name); }
  QTreeView& Folders() { return Find<QTreeView>(*dialog, "DirListBox"); }

  TemporaryFolder folder;
  FakeVolumes volumes{{"/", folder.Path() + "a"}};
  std::unique_ptr<SelectDirectory> dialog;
};

TEST_F(FolderPickerTexts, SaysWhatTheFolderIsFor) {
  EXPECT_EQ(Find<QLabel>(*dialog, "PurposeLabel").text(), "Choose a folder.");
  EXPECT_TRUE(Folders().accessibleDescription().startsWith("Choose a folder."));
}

TEST_F(FolderPickerTexts, OpensInTheHomeFolderWithoutAPath) {
  SelectDirectory other(volumes, From(""));
  Find<QPushButton>(other, "OKButton").click();
  EXPECT_EQ(other.SelectedDirectory(), QDir::homePath().toStdString());
}

TEST_F(FolderPickerTexts, OpensInTheHomeFolderWhenTheDriveDoesNotAnswer) {
  FakeVolumes silent(
      {{.root = "/"}, {.root = folder.Path() + "a", .state = Volume::State::kSilent}});
  SelectDirectory other(silent, From(At("a/Music")));
  Find<QPushButton>(other, "OKButton").click();
  EXPECT_EQ(other.SelectedDirectory(), QDir::homePath().toStdString());
}

TEST_F(FolderPickerTexts, CountsTheSongsBelowTheSelectedFolder) {
  for (const char* song : {"start/one.mp3", "start/inner/two.MP3", "start/inner/cover.jpg"}) {
    PutFile(song, "");
  }
  auto& figure = Find<QLabel>(*dialog, "FigureLabel");
  EXPECT_TRUE(QTest::qWaitFor([&] { return figure.text() == "Songs in it and below it: 2"; }));
  EXPECT_EQ(Folders().accessibleDescription(), "Choose a folder. Songs in it and below it: 2");

  auto& model = dynamic_cast<QFileSystemModel&>(*Folders().model());
  Folders().setCurrentIndex(model.index(At("start/inner")));

  EXPECT_EQ(figure.text(), "") << "the count was of another folder";
  EXPECT_TRUE(QTest::qWaitFor([&] { return figure.text() == "Songs in it and below it: 1"; }));
}

TEST_F(FolderPickerTexts, GoesOnCountingWhenFoldersBesideItComeAndGo) {
  auto& model = dynamic_cast<QFileSystemModel&>(*Folders().model());
  auto& figure = Find<QLabel>(*dialog, "FigureLabel");
  ASSERT_TRUE(QTest::qWaitFor([&] { return figure.text() == "Songs in it and below it: 0"; }));
  const QPersistentModelIndex beside = model.index(At("a"));
  ASSERT_TRUE(beside.isValid());

  std::filesystem::remove_all("a");

  ASSERT_TRUE(QTest::qWaitFor([&] { return !beside.isValid(); }));
  EXPECT_EQ(figure.text(), "Songs in it and below it: 0");
}

TEST_F(FolderPickerTexts, SaysHowMuchRoomThereIs) {
  FolderQuestion question = From(At("start"));
  question.figure = FolderQuestion::Figure::kRoom;
  SelectDirectory other(volumes, question);
  auto& figure = Find<QLabel>(other, "FigureLabel");
  EXPECT_TRUE(QTest::qWaitFor([&] { return !figure.text().isEmpty(); }));
  EXPECT_TRUE(QRegularExpression("^Room: [0-9.]+ [kMGT]?B free$").match(figure.text()).hasMatch())
      << figure.text().toStdString();
}

TEST_F(FolderPickerTexts, FitsOnASmallScreenAtDoubleSize) {
  SelectDirectory other(volumes, MusicFolderQuestion({}));
  other.show();
  // 1024 x 768 at 200 %, without the frame of the window.
  EXPECT_LE(other.minimumSizeHint().width(), 496);
  EXPECT_LE(other.minimumSizeHint().height(), 344);
}

}  // namespace
}  // namespace repvolta
