#include <gtest/gtest.h>

#include "backup/BackupManifest.h"

namespace repvolta {
namespace {

const BackupOrigin kOrigin = {.format = 1,
                              .version = "1.0",
                              .made = "2026-11-22 10.30.05",
                              .programDirectory = "/home/kim/.local/share/repvolta/",
                              .home = "/home/kim"};

TEST(BackupManifest, IsATextThatAPersonCanRead) {
  EXPECT_EQ(ManifestText(kOrigin),
            "Repvolta backup\nformat=1\nprogram=1.0\nmade=2026-11-22 10.30.05\n"
            "directory=/home/kim/.local/share/repvolta/\nhome=/home/kim\n");
}

TEST(BackupManifest, IsReadAsItWasWritten) {
  EXPECT_EQ(ParseManifest(ManifestText(kOrigin)), kOrigin);
}

TEST(BackupManifest, MayComeFromAnotherEditor) {
  const BackupOrigin origin =
      ParseManifest("Repvolta backup\r\nfuture=1\r\n\r\nodd\r\nhome=/a=b\r\nformat=1");
  EXPECT_EQ(origin.format, 1);
  EXPECT_EQ(origin.home, "/a=b");
  EXPECT_EQ(origin.version, "");
}

TEST(BackupManifest, LeavesOutAPathWithALineBreak) {
  BackupOrigin origin = kOrigin;
  origin.home = "/home/a\nformat=2";
  EXPECT_EQ(ParseManifest(ManifestText(origin)).home, "");
  EXPECT_EQ(ParseManifest(ManifestText(origin)).format, 1);
}

TEST(BackupManifest, HasAFormatAboveZero) {
  for (const char* text : {"", "Repvolta backup", "format=1\n", "Repvolta backup\nformat=\n",
                           "Repvolta backup\nformat=-1\n", "Repvolta backup\nformat=1x\n",
                           "Repvolta backup\nformat=99999999999999\n", "Another\nformat=1\n"}) {
    EXPECT_EQ(ParseManifest(text).format, 0) << text;
  }
}

}  // namespace
}  // namespace repvolta
