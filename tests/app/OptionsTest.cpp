#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/Options.h"
#include "app/Settings.h"
#include "base/FileError.h"
#include "base/ProgramFiles.h"

#include "support/AtFlush.h"
#include "support/FailureOf.h"
#include "support/FullDisk.h"
#include "support/TemporaryFolder.h"
#include "support/UnreadableFile.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

/// A fresh program directory.
class OptionsFile : public testing::Test {
 protected:
  OptionsFile() { state.ProgramDirectory = folder.Path(); }

  void Choose(ProgramState& program, const std::string& text) {
    Put(program.Options, kPlayerMountPoint, text);
    SaveOptions(program);
  }

  static std::string Content() { return GetTextFile(kOptionsFile); }

  TemporaryFolder folder;
  ProgramState state;
};

TEST_F(OptionsFile, IsMissingAtFirstAndAllHaveTheirDefaults) {
  Put(state.Options, kPlayListForPlayer, true);
  LoadOptions(state);
  EXPECT_FALSE(Get(state.Options, kPlayListForPlayer));
  EXPECT_EQ(Get(state.Options, kPlayerMountPoint), "");
  EXPECT_FALSE(fs::exists(kOptionsFile));
}

TEST_F(OptionsFile, GivesBackWhatWasSaved) {
  Put(state.Options, kPlayListForPlayer, true);
  SaveOptions(state);
  state.Options = {};
  LoadOptions(state);
  EXPECT_TRUE(Get(state.Options, kPlayListForPlayer));
  EXPECT_EQ(Content(), "play-list-for-player = yes\n");
}

TEST_F(OptionsFile, KeepsWhatAPersonWroteInIt) {
  PutFile(kOptionsFile, "# Mine\nlater-option = 7\nnonsense\n");
  LoadOptions(state);
  Choose(state, "/mnt");
  EXPECT_EQ(Content(), "# Mine\nlater-option = 7\nnonsense\nplayer-mount-point = /mnt\n");
}

TEST_F(OptionsFile, LeavesTheSettingsAlone) {
  SaveSettings(state);
  const Bytes before = GetFile(kSettingsFile);
  Choose(state, "/mnt");
  EXPECT_EQ(GetFile(kSettingsFile), before);
}

TEST_F(OptionsFile, IsSavedInTheProgramDirectory) {
  fs::current_path("/");
  SaveOptions(state);
  EXPECT_TRUE(fs::exists(folder.Path() + kOptionsFile));
}

TEST_F(OptionsFile, IsKeptWhenItCouldNotBeRead) {
  Choose(state, "/mnt");
  const std::string before = Content();
  {
    const UnreadableFile unreadable(kOptionsFile);
    EXPECT_EQ(FailureOf([&] { LoadOptions(state); }),
              "options.conf could not be read: Permission denied");
  }
  EXPECT_EQ(FailureOf([&] { Choose(state, "/other"); }),
            "options.conf is kept as it was: It could not be read at the start");
  EXPECT_EQ(Content(), before);
  LoadOptions(state);
  EXPECT_EQ(Get(state.Options, kPlayerMountPoint), "/mnt");
}

TEST_F(OptionsFile, IsKeptWhenItIsNoFileOfOptions) {
  const std::string content(2'000'000, 'x');
  PutFile(kOptionsFile, content);
  EXPECT_EQ(FailureOf([&] { LoadOptions(state); }),
            "options.conf could not be read: It is too long for a file of options");
  EXPECT_NE(FailureOf([&] { SaveOptions(state); }), "");
  EXPECT_EQ(Content(), content);
}

TEST_F(OptionsFile, IsKeptWhenTheDiskIsFull) {
  Choose(state, "/mnt");
  const std::string before = Content();
  {
    const FullDisk disk(10);
    EXPECT_EQ(FailureOf([&] { Choose(state, "/other"); }),
              "options.conf could not be written: File too large");
  }
  EXPECT_EQ(Content(), before);
}

/// The options of this program and of another that saves the same file.
class OptionsOfTwo : public OptionsFile {
 protected:
  OptionsOfTwo() {
    Choose(state, "/first");
    other.ProgramDirectory = folder.Path();
    LoadOptions(other);
  }

  ProgramState other;
};

TEST_F(OptionsOfTwo, AreBothKept) {
  Choose(other, "/other");
  Put(state.Options, kPlayListForPlayer, true);
  SaveOptions(state);
  EXPECT_EQ(Content(), "player-mount-point = /other\nplay-list-for-player = yes\n");
  EXPECT_EQ(Get(state.Options, kPlayerMountPoint), "/other");
}

TEST_F(OptionsOfTwo, AreThoseOfTheLastWhereBothChangedOne) {
  Choose(other, "/other");
  Choose(state, "/mine");
  EXPECT_EQ(Content(), "player-mount-point = /mine\n");
}

TEST_F(OptionsOfTwo, AreBothKeptWhereOneComesInDuringTheSave) {
  const AtFlush synced([&] {
    PutFile("brought", "player-mount-point = /other\n# Theirs\n");
    fs::rename("brought", kOptionsFile);
  });
  Put(state.Options, kPlayListForPlayer, true);
  SaveOptions(state);
  EXPECT_EQ(Content(), "player-mount-point = /other\n# Theirs\nplay-list-for-player = yes\n");
}

TEST_F(OptionsOfTwo, AreSeenByTheOneThatAsks) {
  Choose(other, "/other");
  ReloadChangedOptions(state);
  EXPECT_EQ(Get(state.Options, kPlayerMountPoint), "/other");
}

TEST_F(OptionsOfTwo, AreKeptInMemoryWhereTheFileIsGone) {
  fs::remove(kOptionsFile);
  SaveOptions(state);
  EXPECT_EQ(Content(), "player-mount-point = /first\n");
}

TEST(OddOptions, AreNoneInAFileThatIsUnderstood) {
  EXPECT_EQ(OddOptions(OptionLines("# All is well\nplay-list-for-player = yes\nlater = ?\n")), "");
}

TEST(OddOptions, AreNamedWithTheirLines) {
  EXPECT_EQ(OddOptions(OptionLines("play-list-for-player = perhaps\n\nno\x1Bthing\n")),
            "options.conf has lines that cannot be understood: 1 (play-list-for-player = perhaps), "
            "3 (no?thing). They are kept and have no effect.");
}

}  // namespace
}  // namespace repvolta
