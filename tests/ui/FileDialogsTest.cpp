#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QProgressBar>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ui/QtDialogs.h"

#include "support/Modal.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

const FileQuestion kQuestion = {.name = "TestFileDialog",
                                .title = "Back Up",
                                .file = "Suggested.zip",
                                .filter = "Backups (*.zip)",
                                .suffix = ".zip"};

/// The dialogs for one file, which begin in the temporary folder.
class FileDialogs : public testing::Test {
 protected:
  FileDialogs() { qputenv("HOME", folder_.Path().c_str()); }
  ~FileDialogs() override { qputenv("HOME", home_); }

  static void Answer(QWidget& box, const QString& name) {
    Find<QLineEdit>(box, "fileNameEdit").setText(name);
    QTest::keyClick(&box, Qt::Key_Return);
  }

  TemporaryFolder folder_;
  QtDialogs dialogs_{folder_.Path() + "window.ini"};

 private:
  QByteArray home_ = qgetenv("HOME");
};

TEST_F(FileDialogs, SuggestAName) {
  WhenModal([](QWidget& box) {
    EXPECT_EQ(box.windowTitle(), "Back Up");
    EXPECT_EQ(Find<QLineEdit>(box, "fileNameEdit").text(), "Suggested.zip");
    QTest::keyClick(&box, Qt::Key_Return);
  });
  EXPECT_EQ(dialogs_.ChooseFileToSave(kQuestion), folder_.Path() + "Suggested.zip");
}

TEST_F(FileDialogs, AddTheSuffix) {
  WhenModal([](QWidget& box) { Answer(box, "Läufe"); });
  EXPECT_EQ(dialogs_.ChooseFileToSave(kQuestion), folder_.Path() + "Läufe.zip");
}

TEST_F(FileDialogs, ChooseNothingWhenCancelled) {
  WhenModal([](QWidget& box) { box.close(); });
  EXPECT_EQ(dialogs_.ChooseFileToSave(kQuestion), "");
}

TEST_F(FileDialogs, AskBeforeAnExistingFileIsChosen) {
  PutFile("Suggested.zip", "old");
  bool isAsked = false;
  WhenModal([&](QWidget& box) {
    WhenModal([&](QWidget& question) {
      isAsked = dynamic_cast<QMessageBox*>(&question) != nullptr;
      question.close();
      WhenModal([](QWidget& again) { again.close(); });
    });
    QTest::keyClick(&box, Qt::Key_Return);
  });
  EXPECT_EQ(dialogs_.ChooseFileToSave(kQuestion), "");
  EXPECT_TRUE(isAsked);
}

TEST_F(FileDialogs, OpenAFileThatIsThere) {
  PutFile("b.zip", "x");
  WhenModal([](QWidget& box) { Answer(box, "b.zip"); });
  EXPECT_EQ(dialogs_.ChooseFileToOpen(kQuestion), folder_.Path() + "b.zip");
}

TEST_F(FileDialogs, BeginWhereTheyWereLeft) {
  std::filesystem::create_directory("deep");
  WhenModal([](QWidget& box) { Answer(box, "deep/b.zip"); });
  dialogs_.ChooseFileToSave(kQuestion);
  QString begin;
  WhenModal([&](QWidget& box) {
    begin = dynamic_cast<QFileDialog&>(box).directory().path();
    box.close();
  });
  dialogs_.ChooseFileToOpen(kQuestion);
  EXPECT_EQ(begin.toStdString(), folder_.Path() + "deep");
}

TEST_F(FileDialogs, FitOnASmallScreenAtDoubleSize) {
  QSize least;
  WhenModal([&](QWidget& box) {
    least = box.minimumSizeHint();
    box.close();
  });
  dialogs_.ChooseFileToSave(kQuestion);
  // 1024 x 768 at 200 %, without the frame of the window.
  EXPECT_LE(least.width(), 496);
  EXPECT_LE(least.height(), 344);
}

TEST(WorkWindow, GivesTheWorkWhatItReports) {
  int reports = 0;
  QtDialogs().ShowLongWork("Backing up ...", [&](const ReportWork& report) {
    for (const int percent : {0, 50, 100}) {
      report(percent);
      ++reports;
    }
  });
  EXPECT_EQ(reports, 3);
}

TEST(WorkWindow, StopsTheWorkOfAPersonWhoWantsNoMore) {
  int reports = 0;
  const auto work = [&](const ReportWork& report) {
    for (int percent = 0; percent < 100; ++percent) {
      for (QWidget* window : QApplication::topLevelWidgets()) {
        if (auto* bar = qobject_cast<QProgressDialog*>(window)) {
          EXPECT_EQ(bar->findChild<QProgressBar*>()->accessibleName(), "Backing up ...");
          if (percent == 5) bar->findChild<QPushButton*>()->click();
        }
      }
      report(percent);
      ++reports;
    }
  };
  EXPECT_THROW(QtDialogs().ShowLongWork("Backing up ...", work), WorkStopped);
  EXPECT_EQ(reports, 5);
}

}  // namespace
}  // namespace repvolta
