#include <cerrno>
#include <gtest/gtest.h>

#include "base/FileError.h"

namespace repvolta {
namespace {

TEST(FileError, SaysWhatFailedAndWhy) {
  EXPECT_STREQ(FileError("a.wav", "could not be read", "It is not a file").what(),
               "a.wav could not be read: It is not a file");
  EXPECT_STREQ(FileError("a.wav", "could not be read", ENOENT).what(),
               "a.wav could not be read: No such file or directory");
}

TEST(FileError, HasNoErrorNumberWhereNoSystemCallFailed) {
  EXPECT_EQ(FileError("a", "failed", "It is not a file").Error(), 0);
}

TEST(FileError, SpeaksEnglishInEveryLocale) {
  EXPECT_EQ(FileError("a", "failed", ENOSPC).Reason(), "No space left on device");
  EXPECT_EQ(FileError("a", "failed", 9999).Reason(), "Error 9999");
  EXPECT_EQ(FileError("a", "failed", ENOSPC).Error(), ENOSPC);
}

}  // namespace
}  // namespace repvolta
