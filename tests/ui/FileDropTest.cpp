#include <QSysInfo>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ui/FileDrop.h"

#include "support/Drop.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A widget that files can be dropped on.
class DropTarget : public testing::Test {
 protected:
  DropTarget() {
    widget.resize(100, 100);
    new FileDrop(
        &widget, [this] { return isOpen; },
        [this](const std::vector<std::string>& paths) { taken.push_back(paths); });
  }

  Qt::DropAction EnterWith(const QList<QUrl>& urls) { return Drag(widget).Urls(urls).Enter(); }

  QWidget widget;
  bool isOpen = true;
  std::vector<std::vector<std::string>> taken;
};

TEST_F(DropTarget, TakesFilesAfterTheDrop) {
  Drag drag(widget);
  drag.Files({"/m/a.mp3", "/m/ö 1"});
  EXPECT_EQ(drag.Enter(), Qt::CopyAction);
  EXPECT_EQ(drag.Move(), Qt::CopyAction);
  EXPECT_EQ(drag.Drop(), Qt::CopyAction);
  EXPECT_THAT(taken, IsEmpty());
  QApplication::processEvents();
  EXPECT_THAT(taken, ElementsAre(ElementsAre("/m/a.mp3", "/m/ö 1")));
}

TEST_F(DropTarget, TakesFilesOfAProgramThatEndsWithTheDrop) {
  Drag drag(widget);
  drag.Files({"/m/a.mp3"}).Enter();
  drag.Urls({}).Drop();
  QApplication::processEvents();
  EXPECT_THAT(taken, ElementsAre(ElementsAre("/m/a.mp3")));
}

TEST_F(DropTarget, CopiesWhatCouldAlsoBeMoved) {
  EXPECT_EQ(
      Drag(widget, Qt::CopyAction | Qt::MoveAction | Qt::LinkAction).Files({"/a.mp3"}).Enter(),
      Qt::CopyAction);
}

TEST_F(DropTarget, LinksWhatCanOnlyBeLinked) {
  EXPECT_EQ(Drag(widget, Qt::LinkAction).Files({"/a.mp3"}).Enter(), Qt::LinkAction);
}

TEST_F(DropTarget, RefusesAMoveBecauseItWouldDeleteTheSong) {
  EXPECT_EQ(Drag(widget, Qt::MoveAction).Files({"/a.mp3"}).Enter(), Qt::IgnoreAction);
}

TEST_F(DropTarget, RefusesTexts) {
  EXPECT_EQ(Drag(widget).Text("/m/a.mp3").Enter(), Qt::IgnoreAction);
}

TEST_F(DropTarget, RefusesWhatIsNotOnThisComputer) {
  const QUrl local("file:///m/a.mp3");
  for (const char* url : {"http://example.org/a.mp3", "mtp://player/a.mp3", "smb://nas/a.mp3",
                          "file://nas/m/a.mp3"}) {
    EXPECT_EQ(EnterWith({QUrl(url)}), Qt::IgnoreAction) << url;
    EXPECT_EQ(EnterWith({local, QUrl(url)}), Qt::IgnoreAction) << url;
  }
}

TEST_F(DropTarget, TakesThisComputersOwnName) {
  EXPECT_EQ(EnterWith({QUrl("file://localhost/m/a.mp3")}), Qt::CopyAction);
  QUrl named("file:///m/a.mp3");
  named.setHost(QSysInfo::machineHostName());
  EXPECT_EQ(EnterWith({named}), Qt::CopyAction);
}

TEST_F(DropTarget, RefusesADragWhileItIsClosed) {
  isOpen = false;
  EXPECT_EQ(Drag(widget).Files({"/a.mp3"}).Enter(), Qt::IgnoreAction);
}

TEST_F(DropTarget, RefusesADropWhenItHasClosedMeanwhile) {
  Drag drag(widget);
  drag.Files({"/a.mp3"});
  EXPECT_EQ(drag.Enter(), Qt::CopyAction);
  isOpen = false;
  EXPECT_EQ(drag.Move(), Qt::IgnoreAction);
  EXPECT_EQ(drag.Drop(), Qt::IgnoreAction);
  QApplication::processEvents();
  EXPECT_THAT(taken, IsEmpty());
}

TEST(LocalPaths, HaveTheBytesOfTheNames) {
  QMimeData data;
  data.setData("text/uri-list",
               "file:///m/caf%E9.mp3\r\nfile:///m/100%25%20%23%3F.mp3\r\nfile:///m/%E8%B5%B0/\r\n");
  EXPECT_THAT(LocalPaths(data), ElementsAre("/m/caf\xE9.mp3", "/m/100% #?.mp3", "/m/走/"));
}

TEST(LocalPaths, AreNoneWithoutFiles) {
  const QMimeData data;
  EXPECT_THAT(LocalPaths(data), IsEmpty());
}

}  // namespace
}  // namespace repvolta
