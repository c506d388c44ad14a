#include <cerrno>
#include <gtest/gtest.h>

#include "mp3/TagError.h"

namespace repvolta {
namespace {

TEST(TagError, TellsTheFailureAndTheModule) {
  const TagError error(FileError("song.mp3", "could not be read", ENOSPC), ".cMP3ID3v2");
  EXPECT_STREQ(error.what(), "song.mp3 could not be read: No space left on device");
  EXPECT_EQ(error.Error(), ENOSPC);
  EXPECT_EQ(error.Source(), "tests_mp3.cMP3ID3v2");
}

}  // namespace
}  // namespace repvolta
