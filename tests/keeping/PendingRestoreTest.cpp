#include <cstdio>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "base/FileError.h"
#include "keeping/PendingRestore.h"

#include "support/FullDisk.h"
#include "support/OrdinaryRights.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

constexpr const char* kFolder = "restore.pending";
constexpr const char* kJournal = "restore.pending/journal.txt";

void Add(RestoreStage& stage, const std::string& name, std::string_view content) {
  stage.Add(name, AsBytes(content));
}

/// A program directory with "settings.dat" and a workout, over which another state is restored.
class PendingRestore : public testing::Test {
 protected:
  PendingRestore() {
    PutFile("settings.dat", "old settings");
    PutFile("workouts/Monday.RPV", "old Monday");
    PutFile("workouts/Stays.RPV", "stays");
  }

  static void Decide() {
    RestoreStage stage("");
    Add(stage, "settings.dat", "new settings");
    Add(stage, "workouts/Monday.RPV", "new Monday");
    Add(stage, "versions/Legs/a.RPV", "version");
    stage.Commit();
  }

  static void ExpectOld() {
    EXPECT_EQ(GetTextFile("settings.dat"), "old settings");
    EXPECT_EQ(GetTextFile("workouts/Monday.RPV"), "old Monday");
    EXPECT_FALSE(fs::exists("versions"));
  }

  static void ExpectNew() {
    EXPECT_EQ(GetTextFile("settings.dat"), "new settings");
    EXPECT_EQ(GetTextFile("workouts/Monday.RPV"), "new Monday");
    EXPECT_EQ(GetTextFile("workouts/Stays.RPV"), "stays");
    EXPECT_EQ(GetTextFile("versions/Legs/a.RPV"), "version");
    EXPECT_FALSE(fs::exists(kFolder));
  }

  TemporaryFolder folder_;
};

TEST_F(PendingRestore, ChangesNothingUntilItIsFinished) {
  Decide();
  ExpectOld();
  EXPECT_TRUE(IsRestorePending(""));
}

TEST_F(PendingRestore, IsFinishedByPuttingAllFilesInPlace) {
  Decide();
  FinishRestore("");
  ExpectNew();
  EXPECT_FALSE(IsRestorePending(""));
}

TEST_F(PendingRestore, IsFoundFromAnotherFolder) {
  Decide();
  fs::current_path("/");
  FinishRestore(folder_.Path());
  fs::current_path(folder_.Path());
  ExpectNew();
}

TEST_F(PendingRestore, LeavesNothingWhenItWasNotDecided) {
  {
    RestoreStage stage("");
    Add(stage, "settings.dat", "new settings");
  }
  ExpectOld();
  EXPECT_FALSE(fs::exists(kFolder));
}

TEST_F(PendingRestore, ThatWasKilledBeforeItWasDecidedIsRemoved) {
  PutFile("restore.pending/files/settings.dat", "half");
  FinishRestore("");
  ExpectOld();
  EXPECT_FALSE(fs::exists(kFolder));
}

TEST_F(PendingRestore, ThatWasKilledAmidItsBackupLeavesNoHalfOfIt) {
  fs::create_directory(kFolder);
  PutFile("backups/.Before restore 2026-11-22 10.15.00.zip.new", "half a backup");
  PutFile("backups/Before restore 2026-11-21 10.15.00.zip", "a backup");
  PutFile("backups/.My own.zip.new", "is being written");
  FinishRestore("");
  EXPECT_FALSE(fs::exists("backups/.Before restore 2026-11-22 10.15.00.zip.new"));
  EXPECT_TRUE(fs::exists("backups/Before restore 2026-11-21 10.15.00.zip"));
  EXPECT_TRUE(fs::exists("backups/.My own.zip.new"));
}

TEST_F(PendingRestore, IsFinishedAlsoWhenHalfABackupMustStay) {
  const OrdinaryRights ordinary;
  PutFile("backups/.Before restore 2026-11-22 10.15.00.zip.new", "half a backup");
  for (const fs::perms mayNotRemove : {fs::perms(0500), fs::perms(0)}) {
    Decide();
    fs::permissions("backups", mayNotRemove);
    FinishRestore("");
    fs::permissions("backups", fs::perms(0700));
    EXPECT_FALSE(IsRestorePending(""));
    EXPECT_TRUE(fs::exists("backups/.Before restore 2026-11-22 10.15.00.zip.new"));
  }
}

TEST_F(PendingRestore, GoesOnWhereItStopped) {
  Decide();
  fs::rename("restore.pending/files/settings.dat", "settings.dat");
  FinishRestore("");
  ExpectNew();
}

TEST_F(PendingRestore, IsFinishedAfterAFailure) {
  Decide();
  fs::remove("workouts/Monday.RPV");
  PutFile("workouts/Monday.RPV/in the way", "");
  EXPECT_THROW(FinishRestore(""), FileError);
  EXPECT_TRUE(IsRestorePending(""));
  fs::remove_all("workouts/Monday.RPV");
  FinishRestore("");
  ExpectNew();
}

TEST_F(PendingRestore, KeepsAnotherOneFromBeginning) {
  Decide();
  EXPECT_THROW(RestoreStage(""), FileError);
  FinishRestore("");
  ExpectNew();
}

TEST_F(PendingRestore, DoesNotUndoLaterEditsWhenOnlyTheJournalStays) {
  Decide();
  const std::string journal = GetTextFile(kJournal);
  FinishRestore("");
  PutFile(kJournal, journal);
  PutFile("settings.dat", "edited");
  FinishRestore("");
  EXPECT_EQ(GetTextFile("settings.dat"), "edited");
  EXPECT_FALSE(fs::exists(kFolder));
}

TEST_F(PendingRestore, OfAnotherVersionIsLeftAlone) {
  Decide();
  PutFile(kJournal, "Repvolta restore 2\nsettings.dat\n");
  EXPECT_THROW(FinishRestore(""), FileError);
  ExpectOld();
  EXPECT_TRUE(fs::exists("restore.pending/files/settings.dat"));
}

TEST_F(PendingRestore, NeverLeadsOutOfTheProgramDirectory) {
  RestoreStage stage("");
  for (const char* name : {"../x", "/x", "a/../../x", "", "a/", "./x", "a\nb"}) {
    EXPECT_THROW(Add(stage, name, "x"), FileError) << name;
  }
}

TEST_F(PendingRestore, TrustsNoJournalThatLeadsOut) {
  Decide();
  PutFile("restore.pending/outside", "x");
  PutFile(kJournal, "Repvolta restore 1\n../outside\n");
  EXPECT_THROW(FinishRestore(""), FileError);
  EXPECT_TRUE(fs::exists("restore.pending/outside"));
}

TEST_F(PendingRestore, KeepsThePermissionsOfWhatItReplaces) {
  fs::permissions("settings.dat", fs::perms(0600));
  Decide();
  FinishRestore("");
  EXPECT_EQ(fs::status("settings.dat").permissions(), fs::perms(0600));
  EXPECT_EQ(fs::status("versions/Legs/a.RPV").permissions(),
            fs::status("workouts/Stays.RPV").permissions());
}

TEST_F(PendingRestore, LeavesNothingOnAFullDisk) {
  RestoreStage stage("");
  {
    const FullDisk full(100);
    EXPECT_THROW(Add(stage, "settings.dat", std::string(200, 'x')), FileError);
  }
  ExpectOld();
}

TEST_F(PendingRestore, IsNotDecidedWhenSomethingIsInTheWay) {
  RestoreStage stage("");
  PutFile("workouts/Folder.RPV/x", "");
  PutFile("versions", "no folder");
  EXPECT_THROW(Add(stage, "workouts/Folder.RPV", "x"), FileError);
  EXPECT_THROW(Add(stage, "versions/Monday/a.RPV", "x"), FileError);
}

TEST_F(PendingRestore, IsNotDecidedWhenAFolderCannotBeWritten) {
  const OrdinaryRights ordinary;
  fs::permissions("workouts", fs::perms(0500));
  RestoreStage stage("");
  EXPECT_THROW(Add(stage, "workouts/Monday.RPV", "x"), FileError);
  fs::permissions("workouts", fs::perms(0700));
}

TEST_F(PendingRestore, NeedsAFolderThatCanBeWritten) {
  const OrdinaryRights ordinary;
  fs::permissions(".", fs::perms(0500));
  EXPECT_THROW(RestoreStage(""), FileError);
  fs::permissions(".", fs::perms(0700));
  ExpectOld();
}

}  // namespace
}  // namespace repvolta
