#include <filesystem>
#include <gtest/gtest.h>

#include "base/FileStatus.h"

#include "support/FailureOf.h"
#include "support/TemporaryFolder.h"
#include "support/UnreadableFile.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

TEST(StatusOf, FollowsALinkOrSeesIt) {
  TemporaryFolder folder;
  PutFile("file", "four");
  fs::create_symlink("file", "link");
  EXPECT_EQ(StatusOf("link", Links::kFollowed)->st_size, 4);
  EXPECT_TRUE(S_ISLNK(StatusOf("link", Links::kSeen)->st_mode));
}

TEST(StatusOf, IsNothingWhereThereIsNothing) {
  TemporaryFolder folder;
  PutFile("file", "");
  fs::create_symlink("loop", "loop");
  for (const std::string& path :
       {std::string("gone"), std::string("file/in"), std::string("loop"), std::string(300, 'x')}) {
    EXPECT_FALSE(StatusOf(path, Links::kFollowed)) << path;
  }
}

TEST(StatusOf, IsAnErrorWhereNobodyCanTell) {
  TemporaryFolder folder;
  PutFile("closed/file", "");
  const UnreadableFile unreadable("closed");
  EXPECT_EQ(FailureOf([] { StatusOf("closed/file", Links::kFollowed); }),
            "closed/file could not be looked at: Permission denied");
}

}  // namespace
}  // namespace repvolta
