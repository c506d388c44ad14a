#include <filesystem>
#include <gtest/gtest.h>

#include "base/FileError.h"
#include "base/RenameToNew.h"

#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

class RenamedToNew : public testing::Test {
 protected:
  TemporaryFolder folder_;
};

TEST_F(RenamedToNew, IsTheSameFileUnderItsNewName) {
  PutFile("old", "content");
  RenameToNew("old", "new");
  EXPECT_EQ(GetTextFile("new"), "content");
  EXPECT_FALSE(fs::exists("old"));
}

TEST_F(RenamedToNew, NeverTakesThePlaceOfAFile) {
  PutFile("old", "1");
  PutFile("new", "2");
  EXPECT_THROW(RenameToNew("old", "new"), FileError);
  EXPECT_EQ(GetTextFile("old"), "1");
  EXPECT_EQ(GetTextFile("new"), "2");
}

TEST_F(RenamedToNew, NeverTakesThePlaceOfALinkToNowhere) {
  PutFile("old", "1");
  fs::create_symlink("nowhere", "new");
  EXPECT_THROW(RenameToNew("old", "new"), FileError);
  EXPECT_TRUE(fs::exists("old"));
}

TEST_F(RenamedToNew, MustBeThere) { EXPECT_THROW(RenameToNew("old", "new"), FileError); }

}  // namespace
}  // namespace repvolta
