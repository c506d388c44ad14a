#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editing/BackUp.h"

#include "support/BackedUp.h"
#include "support/EditorFixture.h"
#include "support/FullDisk.h"
#include "support/WavBytes.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

/// The workout "Monday"; today is 25 March 2007.
class BackUpTest : public EditorFixture {
 protected:
  BackUpTest() { fs::create_directory("out"); }

  /// Backs up into this file; what the last box says.
  std::string BackUpInto(const std::string& target) {
    dialogs.answers = {target};
    BackUp(editor);
    return dialogs.asked.empty() ? "" : dialogs.asked.back();
  }

  const std::string target_ = folder.Path() + "out/b.zip";
};

TEST_F(BackUpTest, SuggestsANameWithTheDay) {
  BackUpInto("");
  EXPECT_THAT(dialogs.asked, ElementsAre("save|Back Up|Repvolta backup 2007-03-25.zip"));
}

TEST_F(BackUpTest, WritesNothingWhenItIsCancelled) {
  BackUpInto("");
  EXPECT_TRUE(fs::is_empty("out"));
}

TEST_F(BackUpTest, ReplacesNoFileOfTheProgramsOwn) {
  const Bytes workout = GetFile("workouts/Monday.RPV");
  for (const std::string& target :
       {folder.Path() + "workouts/Monday.RPV", folder.Path() + "out/../workouts/Monday.RPV"}) {
    EXPECT_EQ(BackUpInto(target), "message|Back Up|" + target +
                                      " is a file of Repvolta's own and is not replaced. Choose "
                                      "another name.");
  }
  EXPECT_EQ(GetFile("workouts/Monday.RPV"), workout);
}

TEST_F(BackUpTest, SaysWhatTheBackupHolds) {
  PutFile("voice/a.wav", WavBytes().Format(1, 16000, 16).Samples16({1}));
  EXPECT_EQ(BackUpInto(target_),
            "message|Back Up|" + target_ +
                " holds 1 workout and 1 own clip. It was read again and compared.");
  EXPECT_EQ(FilesIn(target_).size(), 2U);
}

TEST_F(BackUpTest, ShowsHowFarItIs) {
  BackUpInto(target_);
  EXPECT_THAT(dialogs.asked, testing::Contains("work|Backing up ..."));
  EXPECT_EQ(dialogs.shares.back(), 100);
}

TEST_F(BackUpTest, NamesWhatIsNotInIt) {
  for (int i = 10; i < 22; ++i) PutFile("voice/" + std::to_string(i) + ".wav", "x");
  EXPECT_THAT(BackUpInto(target_), HasSubstr("compared.\r\rThese files are not in it:\r"
                                             "voice/10.wav: It is no WAV file\r"));
  EXPECT_THAT(dialogs.asked.back(), HasSubstr("\rvoice/19.wav: It is no WAV file\rand 2 more"));
  EXPECT_THAT(dialogs.asked.back(), Not(HasSubstr("voice/20.wav")));
}

TEST_F(BackUpTest, LeavesTheOldBackupWhenItIsStopped) {
  PutFile("out/b.zip", "old");
  dialogs.stopAt = 50;
  EXPECT_EQ(BackUpInto(target_),
            "message|Back Up|There is no new backup; an older one of this name is as it was.");
  EXPECT_EQ(GetTextFile("out/b.zip"), "old");
}

TEST_F(BackUpTest, FailsSoThatTheWindowCanSayWhatIsLeft) {
  const FullDisk disk(100);
  EXPECT_THROW(
      try { BackUpInto(target_); } catch (const FileError&) {
        ADD_FAILURE() << "the window would show it as it is";
      },
      std::runtime_error);
}

TEST_F(BackUpTest, WorksWhereverTheProgramIs) {
  const std::string before = fs::current_path();
  fs::current_path("/");
  BackUpInto(target_);
  fs::current_path(before);
  EXPECT_THAT(FilesIn(target_), testing::Contains(testing::Key("workouts/Monday.RPV")));
}

TEST(TextOfBackup, CountsInWords) {
  EXPECT_EQ(TextOfBackup({}), "nothing");
  EXPECT_EQ(TextOfBackup({{BackupKind::kOptions, 1}}), "the settings");
  EXPECT_EQ(TextOfBackup({{BackupKind::kWorkout, 12},
                          {BackupKind::kVersion, 34},
                          {BackupKind::kClip, 2},
                          {BackupKind::kNameClip, 3},
                          {BackupKind::kExerciseList, 1},
                          {BackupKind::kSettings, 1},
                          {BackupKind::kOptions, 1},
                          {BackupKind::kMusicList, 1}}),
            "12 workouts, 34 earlier versions, 5 own clips, 1 own exercise list, the settings and "
            "the list of random music");
}

}  // namespace
}  // namespace repvolta
