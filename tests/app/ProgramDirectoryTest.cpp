#include <QByteArray>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/ProgramDirectory.h"
#include "base/FileError.h"

#include "support/AtFlush.h"
#include "support/FullDisk.h"
#include "support/TemporaryFolder.h"
#include "support/UnreadableFile.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::ThrowsMessage;
using testing::UnorderedElementsAre;

/// Sets an environment variable until it is destroyed.
class Environment {
 public:
  Environment(const char* name, const std::string& value) : name_(name), before_(qgetenv(name)) {
    qputenv(name, QByteArray::fromStdString(value));
  }
  ~Environment() {
    if (before_.isNull()) {
      qunsetenv(name_);
    } else {
      qputenv(name_, before_);
    }
  }
  Environment(const Environment&) = delete;
  Environment& operator=(const Environment&) = delete;

 private:
  const char* name_;
  QByteArray before_;
};

/// A program that is installed below usr/, and the user's data folder home/.
class ProgramDirectory : public testing::Test {
 protected:
  ProgramDirectory() { fs::create_directories("usr/bin"); }

  void Share(const std::string& name, const std::string& text) {
    PutFile("usr/share/repvolta/" + name, text);
  }

  void Fill() { FillProgramDirectory(program, executable); }

  /// Every file and link below the program directory.
  std::vector<std::string> Filled() const {
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(program)) {
      if (entry.is_symlink() || !entry.is_directory()) {
        names.push_back(fs::relative(entry.path(), program).string());
      }
    }
    return names;
  }

  TemporaryFolder folder;
  const std::string executable = folder.Path() + "usr/bin/repvolta";
  const std::string program = folder.Path() + "home/repvolta/";
};

TEST_F(ProgramDirectory, IsThatOfTheExecutableWhereItHasClips) {
  fs::create_directory("usr/bin/voice");
  EXPECT_EQ(FindProgramDirectory(executable), folder.Path() + "usr/bin/");
}

TEST_F(ProgramDirectory, IsInTheUsersDataFolderWhereTheExecutableHasNoClips) {
  const Environment home("XDG_DATA_HOME", folder.Path() + "home");
  EXPECT_EQ(FindProgramDirectory(executable), program);
  PutFile("usr/bin/voice", "no folder");
  EXPECT_EQ(FindProgramDirectory(executable), program);
  EXPECT_FALSE(fs::exists("home"));
}

TEST_F(ProgramDirectory, IsInTheHomeFolderWhereNoDataFolderIsNamed) {
  const Environment none("XDG_DATA_HOME", "");
  const Environment home("HOME", folder.Path() + "user");
  EXPECT_EQ(FindProgramDirectory(executable), folder.Path() + "user/.local/share/repvolta/");
}

TEST_F(ProgramDirectory, IsNotFoundWhereTheExecutablesFolderCannotBeLookedInto) {
  const UnreadableFile unreadable("usr/bin");
  EXPECT_THAT([&] { FindProgramDirectory(executable); },
              ThrowsMessage<FileError>(HasSubstr("usr/bin/voice")));
}

TEST_F(ProgramDirectory, HasTheGuideBesideTheExecutableOrWhereItIsInstalled) {
  EXPECT_EQ(FindGuide(executable), "");
  fs::create_directories("usr/share/doc/repvolta/guide");
  EXPECT_EQ(FindGuide(executable), "");
  PutFile("usr/share/doc/repvolta/guide/index.html", "");
  EXPECT_EQ(FindGuide(executable), folder.Path() + "usr/bin/../share/doc/repvolta/guide/");
  fs::create_directories("usr/bin/guide");
  PutFile("usr/bin/guide/index.html", "");
  EXPECT_EQ(FindGuide(executable), folder.Path() + "usr/bin/guide/");
}

TEST_F(ProgramDirectory, FindsTheWordListsBesideTheProgramOrWhereTheyAreInstalled) {
  EXPECT_EQ(FindWordLists(executable), "");
  fs::create_directories("usr/share/repvolta/words");
  EXPECT_EQ(FindWordLists(executable), folder.Path() + "usr/bin/../share/repvolta/words/");
  fs::create_directories("usr/bin/words");
  EXPECT_EQ(FindWordLists(executable), folder.Path() + "usr/bin/words/");
}

TEST_F(ProgramDirectory, HasTheProgramsVoiceBesideTheExecutableOrWhereItIsInstalled) {
  fs::create_directories("usr/bin/voice");
  EXPECT_EQ(FindProgramVoice(executable), "");
  Share("voice/one.wav", "one");
  EXPECT_EQ(FindProgramVoice(executable), folder.Path() + "usr/bin/../share/repvolta/voice/");
  fs::create_directories("usr/bin/program-voice");
  EXPECT_EQ(FindProgramVoice(executable), folder.Path() + "usr/bin/program-voice/");
}

TEST_F(ProgramDirectory, GetsAllThatIsShared) {
  Share("README", "read me");
  Share("voice/one.wav", "one");
  Share("voice/exercise/Squat.WAV", "squat");
  Share("a/b/c/d/e.txt", "deep");

  Fill();

  EXPECT_THAT(Filled(), UnorderedElementsAre("README", "voice/one.wav", "voice/exercise/Squat.WAV",
                                             "a/b/c/d/e.txt"));
  EXPECT_EQ(GetTextFile(program + "voice/one.wav"), "one");
  EXPECT_EQ(GetTextFile(program + "a/b/c/d/e.txt"), "deep");
}

TEST_F(ProgramDirectory, GetsEmptyFoldersAndFilesToo) {
  Share("empty.lst", "");
  fs::create_directories("usr/share/repvolta/voice/exercise");
  Fill();
  EXPECT_THAT(Filled(), UnorderedElementsAre("empty.lst"));
  EXPECT_TRUE(fs::is_directory(program + "voice/exercise"));
}

TEST_F(ProgramDirectory, GetsTheFilesThatSharedLinksLeadTo) {
  PutFile("usr/other/one.wav", "one");
  fs::create_directories("usr/share/repvolta");
  fs::create_directory_symlink(folder.Path() + "usr/other", "usr/share/repvolta/voice");
  fs::create_symlink(folder.Path() + "usr/other/one.wav", "usr/share/repvolta/link");

  Fill();

  EXPECT_THAT(Filled(), UnorderedElementsAre("voice/one.wav", "link"));
  EXPECT_FALSE(fs::is_symlink(program + "link"));
  EXPECT_FALSE(fs::is_symlink(program + "voice"));
}

TEST_F(ProgramDirectory, GetsBackWhatAnUpgradeBringsOrTheUserDeleted) {
  Share("voice/one.wav", "one");
  Fill();
  Share("voice/two.wav", "two");
  Share("exercise/Legs.lst", "Squat");
  fs::remove(program + "voice/one.wav");

  Fill();

  EXPECT_THAT(Filled(),
              UnorderedElementsAre("voice/one.wav", "voice/two.wav", "exercise/Legs.lst"));
}

TEST_F(ProgramDirectory, KeepsWhatTheUserHasThere) {
  Share("voice/one.wav", "shared");
  Share("voice/two.wav", "shared");
  PutFile(program + "voice/one.wav", "the user's own");
  PutFile(program + "voice/two.wav", "");
  PutFile(program + "workouts/Monday.RPV", "kept");

  Fill();

  EXPECT_EQ(GetTextFile(program + "voice/one.wav"), "the user's own");
  EXPECT_EQ(GetTextFile(program + "voice/two.wav"), "");
  EXPECT_EQ(GetTextFile(program + "workouts/Monday.RPV"), "kept");
}

TEST_F(ProgramDirectory, KeepsTheUsersLinksWhereverTheyLead) {
  Share("voice/one.wav", "shared");
  Share("voice/two.wav", "shared");
  PutFile("mine/one.wav", "mine");
  fs::create_directories(program + "voice");
  fs::create_symlink(folder.Path() + "mine/one.wav", program + "voice/one.wav");
  fs::create_symlink("gone", program + "voice/two.wav");

  Fill();

  EXPECT_EQ(GetTextFile("mine/one.wav"), "mine");
  EXPECT_EQ(fs::read_symlink(program + "voice/one.wav"), folder.Path() + "mine/one.wav");
  EXPECT_EQ(fs::read_symlink(program + "voice/two.wav"), "gone");
}

TEST_F(ProgramDirectory, IsFilledThroughTheUsersLinkToAFolder) {
  Share("voice/one.wav", "one");
  fs::create_directory("mine");
  fs::create_directories(program);
  fs::create_directory_symlink(folder.Path() + "mine", program + "voice");
  Fill();
  EXPECT_TRUE(fs::is_symlink(program + "voice"));
  EXPECT_EQ(GetTextFile("mine/one.wav"), "one");
}

TEST_F(ProgramDirectory, KeepsAFolderOfTheNameOfASharedFile) {
  Share("voice", "a file");
  fs::create_directories(program + "voice");
  Fill();
  EXPECT_TRUE(fs::is_directory(program + "voice"));
}

TEST_F(ProgramDirectory, IsNotFilledThroughAFileOfTheNameOfASharedFolder) {
  Share("voice/one.wav", "one");
  PutFile(program + "voice", "the user's own");
  EXPECT_THAT([&] { Fill(); }, ThrowsMessage<FileError>(HasSubstr(program)));
  EXPECT_EQ(GetTextFile(program + "voice"), "the user's own");
}

TEST_F(ProgramDirectory, IsLeftAsItIsBesideTheExecutable) {
  Share("voice/one.wav", "one");
  FillProgramDirectory(folder.Path() + "usr/bin/", executable);
  EXPECT_TRUE(fs::is_empty("usr/bin"));
}

TEST_F(ProgramDirectory, IsMadeWhereNothingIsShared) {
  Fill();
  EXPECT_TRUE(fs::is_directory(program));
  EXPECT_THAT(Filled(), IsEmpty());

  PutFile("usr/share/repvolta", "no folder");
  Fill();
  EXPECT_THAT(Filled(), IsEmpty());
}

TEST_F(ProgramDirectory, SaysWhatCouldNotBeMade) {
  PutFile("home", "a file in the way");
  EXPECT_THAT([&] { Fill(); }, ThrowsMessage<FileError>(HasSubstr(folder.Path() + "home")));
  EXPECT_EQ(GetTextFile("home"), "a file in the way");
}

TEST_F(ProgramDirectory, SaysWhatCouldNotBeWritten) {
  Share("voice/one.wav", "one");
  fs::create_directories(program + "voice");
  const UnreadableFile unwritable(program + "voice");
  EXPECT_THAT([&] { Fill(); }, ThrowsMessage<FileError>(HasSubstr(program)));
}

TEST_F(ProgramDirectory, SaysWhatCouldNotBeRead) {
  Share("voice/one.wav", "one");
  {
    const UnreadableFile unreadable("usr/share/repvolta/voice/one.wav");
    EXPECT_THAT([&] { Fill(); },
                ThrowsMessage<FileError>(HasSubstr("/repvolta/voice/one.wav could not be read")));
  }
  EXPECT_THAT(Filled(), IsEmpty());
  const UnreadableFile unreadable("usr/share/repvolta/voice");
  EXPECT_THROW(Fill(), FileError);
}

TEST_F(ProgramDirectory, IsNotTakenForOneThatNothingIsSharedWith) {
  Share("voice/one.wav", "one");
  const UnreadableFile unreadable("usr/share");
  EXPECT_THROW(Fill(), FileError);
}

TEST_F(ProgramDirectory, HoldsACopyOnlyOnceItIsOnTheDevice) {
  Share("one.wav", "one");
  bool isFlushed = false;
  const AtFlush look([&] {
    isFlushed = true;
    EXPECT_FALSE(fs::exists(program + "one.wav"));
  });
  Fill();
  EXPECT_TRUE(isFlushed);
}

TEST_F(ProgramDirectory, NeverHoldsHalfACopy) {
  const std::string clip(100000, 'c');
  Share("voice/one.wav", clip);
  {
    const FullDisk full(50000);
    EXPECT_THAT([&] { Fill(); },
                ThrowsMessage<FileError>(HasSubstr("voice/one.wav could not be written")));
  }
  EXPECT_THAT(Filled(), IsEmpty());

  Fill();

  EXPECT_EQ(GetTextFile(program + "voice/one.wav"), clip);
}

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

TEST_F(LinkToTheEncoder, IsNoneWhereThereIsNoEncoder) {
  fs::create_directory("empty");
  const Environment nothing("PATH", folder.Path() + "empty");
  fs::create_symlink("gone", "lame.exe");
  LinkEncoder(folder.Path());
  EXPECT_EQ(fs::read_symlink("lame.exe"), "gone");
}

TEST_F(LinkToTheEncoder, LeadsToTheEncoderOfThePath) {
  PutFile("bin/lame", "#!/bin/sh\n");
  fs::permissions("bin/lame", fs::perms::owner_all);
  const Environment path("PATH", folder.Path() + "bin");
  LinkEncoder(folder.Path());
  EXPECT_EQ(fs::read_symlink("lame.exe"), folder.Path() + "bin/lame");
}

TEST_F(LinkToTheEncoder, IsNoneInADirectoryThatCannotBeWritten) {
  fs::create_directory("program");
  {
    const UnreadableFile unwritable("program");
    EXPECT_NO_THROW(LinkEncoder("program/"));
  }
  EXPECT_TRUE(fs::is_empty("program"));
}

}  // namespace
}  // namespace repvolta
