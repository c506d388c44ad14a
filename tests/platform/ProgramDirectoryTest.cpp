#include <filesystem>
#include <gtest/gtest.h>

#include "base/FileError.h"
#include "platform/ProgramDirectory.h"

#include "support/TemporaryFolder.h"
#include "support/UnreadableFile.h"

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

/// An installed program with clips in its share folder.
class FilledProgramDirectory : public testing::Test {
 protected:
  FilledProgramDirectory() {
    PutFile("usr/share/repvolta/voice/set.wav", "shared");
    PutFile("usr/share/repvolta/voice/exercise/Squat.WAV", "shared");
    PutFile("usr/bin/repvolta", "");
  }

  void Fill() { FillProgramDirectory(folder.Path() + "home/repvolta/", executable_); }

  TemporaryFolder folder;

 private:
  std::string executable_ = folder.Path() + "usr/bin/repvolta";
};

TEST_F(FilledProgramDirectory, HasWhatTheProgramShares) {
  Fill();
  EXPECT_EQ(GetTextFile("home/repvolta/voice/set.wav"), "shared");
  EXPECT_EQ(GetTextFile("home/repvolta/voice/exercise/Squat.WAV"), "shared");
}

TEST_F(FilledProgramDirectory, KeepsWhatTheUserHas) {
  PutFile("home/repvolta/voice/exercise/Squat.WAV", "own");
  Fill();
  EXPECT_EQ(GetTextFile("home/repvolta/voice/exercise/Squat.WAV"), "own");
}

TEST_F(FilledProgramDirectory, HasWhatASharedLinkLeadsTo) {
  fs::rename("usr/share/repvolta/voice/exercise", "usr/share/names");
  fs::create_directory_symlink("../../names", "usr/share/repvolta/voice/exercise");
  Fill();
  EXPECT_EQ(GetTextFile("home/repvolta/voice/exercise/Squat.WAV"), "shared");
}

TEST_F(FilledProgramDirectory, IsMadeWhereNothingIsShared) {
  fs::remove_all("usr/share");
  Fill();
  EXPECT_TRUE(fs::is_directory("home/repvolta"));
}

TEST_F(FilledProgramDirectory, IsToldWhereItCannotBeMade) {
  PutFile("home", "in the way");
  EXPECT_THROW(Fill(), FileError);
}

TEST_F(FilledProgramDirectory, IsToldWhereWhatIsSharedCannotBeRead) {
  const UnreadableFile unreadable("usr/share/repvolta/voice");
  EXPECT_THROW(Fill(), FileError);
}

}  // namespace
}  // namespace repvolta
