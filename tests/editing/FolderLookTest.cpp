#include <QCoreApplication>
#include <QEventLoop>
#include <filesystem>
#include <gtest/gtest.h>

#include "editing/FolderLook.h"

#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

using Figure = FolderQuestion::Figure;
using State = FolderSight::State;

class FolderLookTest : public testing::Test {
 protected:
  /// Lets the event loop run until a look has ended, and returns what it saw.
  FolderSight SightOf(const std::string& path, Figure figure) {
    FolderSight last;
    FolderLook look(figure, [&](const FolderSight& sight) { last = sight; });
    look.At(path);
    while (last.state == State::kLooking) {
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return last;
  }

  TemporaryFolder folder;
};

TEST_F(FolderLookTest, CountsTheSongsThatTheListWouldHave) {
  PutFile("a.mp3", "");
  PutFile("deep/er/b.MP3", "");
  PutFile("deep/cover.jpg", "");
  EXPECT_EQ(SightOf(folder.Path(), Figure::kSongs),
            (FolderSight{.state = State::kDone, .songs = 2, .freeBytes = {}}));
}

TEST_F(FolderLookTest, SaysWhenTheFolderCannotBeRead) {
  EXPECT_EQ(SightOf(folder.Path() + "gone", Figure::kSongs).state, State::kUnreadable);
}

TEST_F(FolderLookTest, MeasuresTheRoom) {
  EXPECT_TRUE(SightOf(folder.Path(), Figure::kRoom).freeBytes);
  EXPECT_FALSE(SightOf(folder.Path() + "gone", Figure::kRoom).freeBytes);
}

TEST_F(FolderLookTest, TellsNothingOfAFolderThatWasGivenUp) {
  PutFile("first/a.mp3", "");
  std::filesystem::create_directory("second");
  std::vector<FolderSight> told;
  FolderLook look(Figure::kSongs, [&](const FolderSight& sight) { told.push_back(sight); });
  look.At(folder.Path() + "first");
  look.At(folder.Path() + "second");
  while (told.empty() || told.back().state == State::kLooking) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  for (const FolderSight& sight : told) EXPECT_EQ(sight.songs, 0);
}

}  // namespace
}  // namespace repvolta
