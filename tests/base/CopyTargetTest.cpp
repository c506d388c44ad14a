#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>
#include <sys/mman.h>

#include "base/File.h"

#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::size_t kMebibyte = std::size_t{1} << 20;

/// A copy of five and a half MiB behind a head of three bytes.
class WatchedCopy : public testing::Test {
 protected:
  WatchedCopy() {
    content.resize(kMebibyte * 11 / 2);
    for (std::size_t i = 0; i < content.size(); ++i) content[i] = static_cast<Byte>(i * i >> 8U);
    PutFile("source", content);
  }

  void Copy(const CopyWatch& watch) {
    CopyFileToNew("source", "target", {.head = AsBytes("tag"), .offset = 1, .watch = watch});
  }

  TemporaryFolder folder;
  Bytes content;
};

TEST_F(WatchedCopy, IsTheSameAsAnyOther) {
  Copy([](std::uint64_t) {});
  Bytes expected = {'t', 'a', 'g'};
  expected.insert(expected.end(), content.begin() + 1, content.end());
  EXPECT_EQ(GetFile("target"), expected);
}

TEST_F(WatchedCopy, TellsOfEachPiece) {
  std::vector<std::uint64_t> pieces;
  Copy([&](std::uint64_t bytes) { pieces.push_back(bytes); });
  EXPECT_THAT(pieces, ElementsAre(kMebibyte, kMebibyte, kMebibyte, kMebibyte, kMebibyte));
}

TEST_F(WatchedCopy, TellsNothingOfACopyThatIsShort) {
  std::filesystem::resize_file("source", kMebibyte);
  std::vector<std::uint64_t> pieces;
  Copy([&](std::uint64_t bytes) { pieces.push_back(bytes); });
  EXPECT_THAT(pieces, IsEmpty());
}

TEST_F(WatchedCopy, IsEndedByItsWatch) {
  int told = 0;
  EXPECT_THROW(Copy([&](std::uint64_t) {
                 if (++told == 3) throw std::runtime_error("stop");
               }),
               std::runtime_error);
  EXPECT_EQ(told, 3);
  EXPECT_FALSE(std::filesystem::exists("target"));
}

TEST_F(WatchedCopy, TellsOfWhatTheSystemCannotCopyByItself) {
  // A file of the memory is on another file system than the folder.
  const Descriptor memory(memfd_create("song", MFD_CLOEXEC));
  const std::string path = "/proc/self/fd/" + std::to_string(memory.Number());
  PutFile(path, content);
  std::uint64_t told = 0;
  CopyFileToNew(path, "target", {.watch = [&](std::uint64_t bytes) { told += bytes; }});
  EXPECT_EQ(told, 5 * kMebibyte);
  EXPECT_EQ(GetFile("target"), content);
}

}  // namespace
}  // namespace repvolta
