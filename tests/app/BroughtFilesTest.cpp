#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

#include "app/BroughtFiles.h"

#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

constexpr const char* kLine =
    "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad  "
    "voice/a b.wav\n";

class BroughtFilesTest : public testing::Test {
 protected:
  TemporaryFolder folder_;
};

TEST_F(BroughtFilesTest, HaveTheirChecksums) {
  PutFile("brought.sha256", std::string("odd\n\n") + kLine);
  const BroughtFiles brought;
  EXPECT_TRUE(brought.Has("voice/a b.wav", AsBytes("abc")));
  EXPECT_FALSE(brought.Has("voice/a b.wav", AsBytes("abd")));
  EXPECT_FALSE(brought.Has("voice/b.wav", AsBytes("abc")));
}

TEST_F(BroughtFilesTest, AreThoseOfEarlierVersionsToo) {
  PutFile("brought.sha256", std::string(64, '0') + "  voice/a b.wav\n# " + kLine);
  EXPECT_TRUE(BroughtFiles().Has("voice/a b.wav", AsBytes("abc")));
  EXPECT_FALSE(BroughtFiles().Has("voice/a b.wav", AsBytes("abd")));
}

TEST_F(BroughtFilesTest, AreNoneWithoutAList) {
  EXPECT_FALSE(BroughtFiles().Has("voice/a b.wav", AsBytes("abc")));
}

TEST_F(BroughtFilesTest, AreNoneWhenTheListCannotBeRead) {
  std::filesystem::create_directory("brought.sha256");
  EXPECT_FALSE(BroughtFiles().Has("voice/a b.wav", AsBytes("abc")));
}

TEST_F(BroughtFilesTest, AreTheClipsAndListsOfTheBuild) {
  std::filesystem::current_path(REPVOLTA_BIN);
  const BroughtFiles brought;
  for (const char* path : {"voice/sets.wav", "voice/exercise/Squat.WAV", "exercise/Arms.lst"}) {
    EXPECT_TRUE(brought.Has(path, GetFile(path))) << path;
  }
  std::filesystem::current_path(folder_.Path());
}

}  // namespace
}  // namespace repvolta
