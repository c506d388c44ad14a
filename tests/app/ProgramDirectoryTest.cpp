#include <filesystem>
#include <gtest/gtest.h>

#include "app/ProgramDirectory.h"

#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

/// The program directory is the current one; the encoder is on the PATH.
class LinkToTheEncoder : public testing::Test {
 protected:
  TemporaryFolder folder;
};

TEST_F(LinkToTheEncoder, IsMadeWhereItIsMissing) {
  LinkEncoder(folder.Path());
  EXPECT_EQ(fs::read_symlink("lame.exe").filename(), "lame");
  EXPECT_TRUE(fs::is_regular_file("lame.exe"));
}

TEST_F(LinkToTheEncoder, IsMadeAnewWhereItLeadsNowhere) {
  fs::create_symlink("gone", "lame.exe");
  LinkEncoder(folder.Path());
  EXPECT_TRUE(fs::is_regular_file("lame.exe"));
}

TEST_F(LinkToTheEncoder, TakesNoPlaceThatIsTaken) {
  PutFile("lame.exe", "the user's own");
  LinkEncoder(folder.Path());
  EXPECT_EQ(GetTextFile("lame.exe"), "the user's own");

  fs::remove("lame.exe");
  fs::create_directory("lame.exe");
  LinkEncoder(folder.Path());
  EXPECT_TRUE(fs::is_directory("lame.exe"));
}

TEST_F(LinkToTheEncoder, DoesNotReplaceWhatCannotBeLookedAt) {
  fs::create_symlink("lame.exe", "lame.exe");
  LinkEncoder(folder.Path());
  EXPECT_EQ(fs::read_symlink("lame.exe"), "lame.exe");
}

}  // namespace
}  // namespace repvolta
