#include <fstream>
#include <gtest/gtest.h>

#include "player/KeptName.h"

#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

class KeptName : public testing::Test {
 protected:
  /// Whether a name that is asked for counts as that of the file `listed`.
  bool IsThatOf(const std::string& listed, const std::string& asked) {
    std::ofstream(folder_.Path() + listed) << "song";
    return IsKeptAs(FolderHandle::Open(folder_.Path()), asked);
  }

 private:
  TemporaryFolder folder_;
};

TEST_F(KeptName, IsTheOneThatWasAskedForWhereItIsListed) {
  EXPECT_TRUE(IsThatOf("Song.mp3.", "Song.mp3."));
  EXPECT_TRUE(IsThatOf("Song ", "Song "));
}

TEST_F(KeptName, IsAnotherWhereItsLastDotsOrBlanksAreDropped) {
  EXPECT_FALSE(IsThatOf("Song.mp3", "Song.mp3."));
  EXPECT_FALSE(IsThatOf("Song", "Song "));
}

TEST_F(KeptName, IsAnotherWhereItEndsBeforeAControlCharacter) {
  EXPECT_FALSE(IsThatOf("Song", "Song\tone.mp3"));
  EXPECT_FALSE(IsThatOf("Bell", "Bell\a.mp3"));
  EXPECT_TRUE(IsThatOf("Song\ttwo.mp3", "Song\ttwo.mp3"));
}

TEST_F(KeptName, IsNotLookedForWhereNothingCanBeDropped) {
  EXPECT_TRUE(IsThatOf("other.mp3", "Song.mp3"));
}

TEST_F(KeptName, IsBelievedWhereTheDiskCannotTell) {
  EXPECT_TRUE(IsKeptAs(FolderHandle(), "Song."));
}

}  // namespace
}  // namespace repvolta
