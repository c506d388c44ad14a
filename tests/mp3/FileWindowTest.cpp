#include <algorithm>
#include <gtest/gtest.h>

#include "mp3/FileWindow.h"

#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

/// A file of many blocks whose bytes tell their places.
class FileWindowTest : public testing::Test {
 protected:
  FileWindowTest() {
    for (std::size_t i = 0; i < content_.size(); ++i) content_[i] = static_cast<Byte>(i % 251);
    PutFile("song.mp3", content_);
  }

  static File Open() { return File::Open("song.mp3", File::Access::kRead); }

  void ExpectAt(FileWindow& window, std::size_t offset, std::size_t count) const {
    const auto bytes = window.From(offset, count);
    ASSERT_GE(bytes.size(), count) << offset;
    EXPECT_TRUE(std::ranges::equal(bytes, std::span(content_).subspan(offset, bytes.size())))
        << offset;
  }

  TemporaryFolder folder_;
  Bytes content_ = Bytes(600'000);
};

TEST_F(FileWindowTest, GivesTheBytesFromAnyPlaceOn) {
  const File file = Open();
  FileWindow window(file);
  for (const std::size_t offset : {0U, 4090U, 4096U, 100'000U, 99'999U, 1U, 599'990U}) {
    ExpectAt(window, offset, 10);
  }
}

TEST_F(FileWindowTest, GivesAsManyAsAreAskedFor) {
  const File file = Open();
  FileWindow window(file);
  ExpectAt(window, 10, 500'000);
}

TEST_F(FileWindowTest, GivesFewerOnlyAtTheEnd) {
  const File file = Open();
  FileWindow window(file);
  EXPECT_EQ(window.From(599'997, 10).size(), 3U);
  EXPECT_EQ(window.From(600'000, 10).size(), 0U);
  EXPECT_EQ(window.From(900'000, 10).size(), 0U);
  ExpectAt(window, 0, 10);
}

TEST_F(FileWindowTest, ReadsMoreAtATimeTheLongerItGoesOn) {
  const File file = Open();
  FileWindow window(file);
  std::size_t blocks = 0;
  std::size_t before = 0;
  for (std::size_t offset = 0; offset < content_.size(); ++blocks) {
    const std::size_t size = window.From(offset, 1).size();
    offset += size;
    if (offset < content_.size()) {
      EXPECT_GE(size, before);
    }
    before = size;
  }
  EXPECT_LE(blocks, 8U);
}

TEST_F(FileWindowTest, ReadsLittleBehindAJump) {
  const File file = Open();
  FileWindow window(file);
  const std::size_t atStart = window.From(0, 10).size();
  EXPECT_EQ(window.From(300'000, 10).size(), atStart);
  EXPECT_GT(window.From(300'000 + atStart, 10).size(), atStart);
  EXPECT_EQ(window.From(10, 10).size(), atStart);
}

}  // namespace
}  // namespace repvolta
