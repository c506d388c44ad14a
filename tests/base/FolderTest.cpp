#include <cerrno>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <sys/stat.h>

#include "base/Folder.h"

#include "support/FailureOf.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::Pair;

TEST(Folder, IsOneThroughALinkToo) {
  TemporaryFolder folder;
  PutFile("file", "x");
  fs::create_directory("folder");
  fs::create_directory_symlink("folder", "link");
  EXPECT_TRUE(FolderExists("folder"));
  EXPECT_TRUE(FolderExists("link/"));
  EXPECT_FALSE(FolderExists("file"));
  EXPECT_FALSE(FolderExists("file/in"));
  EXPECT_FALSE(FolderExists("gone"));
}

TEST(IsTaken, CountsALinkThatLeadsNowhere) {
  TemporaryFolder folder;
  fs::create_symlink("gone", "link");
  EXPECT_TRUE(IsTaken("link"));
  EXPECT_FALSE(IsTaken("gone"));
}

TEST(MakeFolders, MakesThoseAroundItAndMindsNoneThatIsThere) {
  TemporaryFolder folder;
  MakeFolders("voice/exercise/");
  MakeFolders(folder.Path() + "voice//exercise/new");
  EXPECT_TRUE(fs::is_directory("voice/exercise/new"));
}

TEST(MakeFolders, SaysWhichOneIsInTheWayOfAFile) {
  TemporaryFolder folder;
  PutFile("voice", "x");
  EXPECT_EQ(FailureOf([] { MakeFolders("voice/exercise/"); }),
            "voice could not be created: File exists");
}

TEST(ForEachEntry, TellsWhatEachIs) {
  TemporaryFolder folder;
  PutFile("in/file", "x");
  PutFile("in/folder/deeper", "x");
  fs::create_symlink("gone", "in/link");
  ASSERT_EQ(mkfifo("in/pipe", 0600), 0);
  std::map<std::string, EntryType> found;
  const auto take = [&](std::string_view name, EntryType type) { found.emplace(name, type); };
  EXPECT_EQ(ForEachEntry("in", take), 0);
  EXPECT_THAT(found, ElementsAre(Pair("file", EntryType::kFile), Pair("folder", EntryType::kFolder),
                                 Pair("link", EntryType::kLink), Pair("pipe", EntryType::kOther)));
}

TEST(ForEachEntry, GivesTheErrorOfAFolderThatCannotBeRead) {
  TemporaryFolder folder;
  PutFile("file", "x");
  const auto take = [](std::string_view name, EntryType) { ADD_FAILURE() << name; };
  EXPECT_EQ(ForEachEntry("gone", take), ENOENT);
  EXPECT_EQ(ForEachEntry("file", take), ENOTDIR);
}

}  // namespace
}  // namespace repvolta
