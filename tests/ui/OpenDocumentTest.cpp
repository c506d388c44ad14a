#include <QDesktopServices>
#include <QList>
#include <QMessageBox>
#include <QObject>
#include <QUrl>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ui/QtDialogs.h"

#include "support/Modal.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

using testing::HasSubstr;

/// Replaces the desktop and records the documents to open.
class Desktop : public QObject {
  Q_OBJECT

 public:
  Desktop() { QDesktopServices::setUrlHandler("file", this, "Open"); }
  ~Desktop() override { QDesktopServices::unsetUrlHandler("file"); }

  QList<QUrl> opened;

 public Q_SLOTS:
  void Open(const QUrl& url) { opened << url; }
};

TEST(OpenDocument, OpensItByItsFullPath) {
  const Desktop desktop;
  QtDialogs().OpenDocument("/player/Füße 1/#1 100%.M3U");
  ASSERT_EQ(desktop.opened.size(), 1);
  EXPECT_EQ(desktop.opened.first().toLocalFile(), "/player/Füße 1/#1 100%.M3U");
}

/// The boxes of a program whose guide has the page "music.html".
class OpenGuide : public testing::Test {
 protected:
  OpenGuide() {
    std::filesystem::create_directory("guide");
    PutFile("guide/music.html", "<html>");
    dialogs_.SetGuide(folder_.Path() + "bin/../guide/");
  }

  /// The message that the page leads to.
  std::string MessageFor(const char* page) {
    std::string text;
    WhenModal([&](QWidget& box) {
      text = dynamic_cast<QMessageBox&>(box).text().toStdString();
      box.close();
    });
    dialogs_.OpenGuide(page);
    return text;
  }

  TemporaryFolder folder_;
  QtDialogs dialogs_;
};

TEST_F(OpenGuide, OpensThePageAtItsPart) {
  const Desktop desktop;
  dialogs_.OpenGuide("music.html#random-music");
  ASSERT_EQ(desktop.opened.size(), 1);
  EXPECT_EQ(desktop.opened.first().toLocalFile().toStdString(),
            folder_.Path() + "guide/music.html");
  EXPECT_EQ(desktop.opened.first().fragment(), "random-music");
}

TEST_F(OpenGuide, SaysThatAPageIsMissing) {
  EXPECT_THAT(MessageFor("growth.html#looking-ahead"), HasSubstr("growth.html is missing"));
  dialogs_.SetGuide("");
  EXPECT_THAT(MessageFor("index.html"), HasSubstr("The guide is not installed"));
}

TEST_F(OpenGuide, SaysWhereThePageIsWhenNoProgramShowsIt) {
  EXPECT_THAT(MessageFor("music.html"), HasSubstr(folder_.Path() + "guide/music.html"));
}

}  // namespace
}  // namespace repvolta

#include "OpenDocumentTest.moc"
