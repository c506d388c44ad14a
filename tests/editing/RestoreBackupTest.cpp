#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <optional>

#include "app/Options.h"
#include "app/RecordFormat.h"
#include "app/Settings.h"
#include "app/WorkoutFiles.h"
#include "backup/BackupRestore.h"
#include "backup/WriteBackup.h"
#include "base/FileNames.h"
#include "editing/LoadedWorkout.h"
#include "editing/RestoreBackup.h"
#include "keeping/PendingRestore.h"
#include "keeping/Versions.h"
#include "update/RestoreAtStart.h"
#include "update/UpdateLock.h"

#include "support/ClipBytes.h"
#include "support/EditorFixture.h"
#include "support/FullDisk.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

/// The files below the program directory and their contents, without what a restore keeps beside.
std::map<std::string, std::string> FilesOf(const std::string& root) {
  std::map<std::string, std::string> files;
  for (const auto& entry : fs::recursive_directory_iterator(root)) {
    const std::string path = entry.path().lexically_relative(root);
    const bool isBeside = path.starts_with("backups") || path == "update.lock" || path == "b.zip";
    if (!isBeside && entry.is_regular_file()) files[path] = GetTextFile(entry.path());
  }
  return files;
}

/// The times of everything, to see that nothing was touched.
std::map<std::string, fs::file_time_type> TimesOf(const std::string& root) {
  std::map<std::string, fs::file_time_type> times;
  for (const auto& entry : fs::recursive_directory_iterator(root)) {
    times[entry.path()] = entry.last_write_time();
  }
  return times;
}

/// The program directory with settings, two workouts and a clip, and a backup of it: "b.zip".
class RestoreBackupCommand : public EditorFixture {
 protected:
  RestoreBackupCommand() {
    state.Settings.MusicPath = folder.Path() + "music";
    Put(state.Options, kPlayerMountPoint, "/");
    SaveOptions(state);
    SaveSettings(state);
    AddNewExercise("Squat");
    PutFile("workouts/Legs.RPV", EncodeWorkout({}));
    PutFile("voice/exercise/Hop.WAV", ClipBytes(Bytes(40, 'h')));
    KeepVersion("workouts/Monday.RPV", BeforeWhat::kUpdate, clock.Now());
    WriteBackup(Backup(), OriginHere(folder.Path(), clock.Now()));
    saved_ = FilesOf(".");
  }

  std::string Backup() const { return folder.Path() + "b.zip"; }

  /// Everything that is the person's own goes away.
  static void Forget() {
    for (const char* name : {"settings.dat", "options.conf", "workouts", "versions", "voice"}) {
      fs::remove_all(name);
    }
  }

  void Restore() {
    dialogs.answers = {Backup(), "OK"};
    RestoreBackup(editor);
  }

  std::map<std::string, std::string> saved_;
};

TEST_F(RestoreBackupCommand, GivesTheSameFilesInAnEmptyProgramDirectory) {
  Forget();
  Restore();
  EXPECT_TRUE(FilesOf(".") == saved_);
  EXPECT_THAT(dialogs.restorePlan, ElementsAre("Adds the settings.", "Adds the options.",
                                               "Adds 2 workouts: Legs, Monday.",
                                               "Adds 1 earlier version.", "Adds 1 clip: Hop."));
  EXPECT_THAT(dialogs.asked.back(),
              StartsWith("message|Restore a Backup|Restored: b.zip, made on "));
}

TEST_F(RestoreBackupCommand, ReplacesAndLeavesWhatItSays) {
  PutFile("workouts/Legs.RPV", std::string(kWorkoutFileSize, '\1'));
  PutFile("workouts/Own.RPV", EncodeWorkout({}));
  fs::remove("voice/exercise/Hop.WAV");
  Restore();
  EXPECT_THAT(dialogs.restorePlan,
              ElementsAre("Replaces 1 workout: Legs.", "Adds 1 clip: Hop.",
                          "Leaves 1 workout that the backup does not have: Own.",
                          "4 files are here already, just the same."));
  auto now = FilesOf(".");
  EXPECT_EQ(now.erase("workouts/Own.RPV"), 1U);
  std::erase_if(now, [](const auto& file) { return file.first.starts_with("versions/Legs/"); });
  EXPECT_TRUE(now == saved_);
}

TEST_F(RestoreBackupCommand, PutsNothingDamagedInThePlaceOfWhatIsWhole) {
  const std::string settings = saved_.at("settings.dat");
  PutFile("settings.dat", settings.substr(0, 100));
  PutFile("workouts/Legs.RPV", "abc");
  WriteBackup(Backup(), OriginHere(folder.Path(), clock.Now()));
  PutFile("settings.dat", settings);
  fs::remove("workouts/Legs.RPV");
  fs::remove("voice/exercise/Hop.WAV");
  Restore();
  EXPECT_THAT(dialogs.restorePlan,
              ElementsAre("Adds 1 clip: Hop.", "3 files are here already, just the same.",
                          "Leaves out a file that is damaged in the backup: settings.dat",
                          "Leaves out a file that is damaged in the backup: workouts/Legs.RPV"));
  EXPECT_EQ(GetTextFile("settings.dat"), settings);
  EXPECT_FALSE(fs::exists("workouts/Legs.RPV"));
  EXPECT_TRUE(fs::exists("voice/exercise/Hop.WAV"));
}

TEST_F(RestoreBackupCommand, BacksUpWhatWasThereBefore) {
  const std::string before(kWorkoutFileSize, '\1');
  PutFile("workouts/Legs.RPV", before);
  Restore();
  std::vector<std::string> backups = ListFiles("backups", ".zip");
  ASSERT_EQ(backups.size(), 1U);
  EXPECT_THAT(backups[0], StartsWith("Before restore 2007-03-25 12.00.00"));
  EXPECT_THAT(dialogs.asked.back(), EndsWith(folder.Path() + "backups/" + backups[0]));
  dialogs.answers = {folder.Path() + "backups/" + backups[0], "OK"};
  RestoreBackup(editor);
  EXPECT_EQ(GetTextFile("workouts/Legs.RPV"), before);
}

TEST_F(RestoreBackupCommand, KeepsAVersionOfEachReplacedWorkout) {
  PutFile("workouts/Legs.RPV", std::string(kWorkoutFileSize, '\1'));
  Restore();
  const auto versions = VersionsOf("Legs.RPV");
  ASSERT_EQ(versions.size(), 1U);
  EXPECT_EQ(versions[0].name.before, BeforeWhat::kRestore);
}

TEST_F(RestoreBackupCommand, ShowsTheRestoredStateInTheWindow) {
  state.Settings.DefaultExerciseTime = 9;
  SaveSettings(state);
  state.Workout[0].ExerciseName = "Changed";
  SaveWorkout(state);
  Restore();
  EXPECT_EQ(state.Settings.DefaultExerciseTime, 5);
  EXPECT_EQ(state.Workout[0].ExerciseName.Text(), "Squat");
  EXPECT_THAT(screen.exercises.rows, ElementsAre(HasSubstr("Squat")));
  EXPECT_THAT(screen.workouts.rows, ElementsAre("Legs.RPV", "Monday.RPV"));
  EXPECT_EQ(screen.workouts.selected, 1);
  state.Workout[0].ExerciseName = "Saved";
  SaveWorkout(state);
}

TEST_F(RestoreBackupCommand, LeavesNoStepsToUndo) {
  editor.history->Change({"Change", {}, {}}, [](const WorkoutAccess& workout) {
    workout.State().Workout[0].ExerciseName = "Changed";
    SaveWorkout(workout.State());
  });
  ASSERT_NE(editor.history->UndoName(), "");
  Restore();
  EXPECT_EQ(editor.history->UndoName(), "");
}

TEST_F(RestoreBackupCommand, ChangesNothingWhenThePersonCancels) {
  PutFile("workouts/Legs.RPV", "other");
  const auto before = TimesOf(".");
  for (const std::deque<std::string>& answers :
       {std::deque<std::string>{""}, std::deque<std::string>{Backup(), ""}}) {
    dialogs.answers = answers;
    RestoreBackup(editor);
  }
  EXPECT_TRUE(TimesOf(".") == before);
}

TEST_F(RestoreBackupCommand, ChangesNothingForAForeignFile) {
  PutFile("foreign.zip", "no archive");
  const auto before = TimesOf(".");
  dialogs.answers = {folder.Path() + "foreign.zip"};
  EXPECT_THROW(RestoreBackup(editor), std::runtime_error);
  EXPECT_TRUE(TimesOf(".") == before);
  EXPECT_THAT(dialogs.asked, Not(Contains(StartsWith("restore|"))));
}

TEST_F(RestoreBackupCommand, ChangesNothingWhenItIsStopped) {
  PutFile("workouts/Legs.RPV", "other");
  const auto before = FilesOf(".");
  dialogs.answers = {Backup(), "OK"};
  dialogs.stopAt = 1;
  RestoreBackup(editor);
  EXPECT_EQ(dialogs.asked.back(),
            "message|Restore a Backup|Nothing was restored; everything is as it was.");
  EXPECT_TRUE(FilesOf(".") == before);
}

TEST_F(RestoreBackupCommand, ChangesNothingOnAFullDisk) {
  PutFile("workouts/Legs.RPV", "other");
  const auto before = FilesOf(".");
  dialogs.answers = {Backup(), "OK"};
  {
    const FullDisk full(5000);
    EXPECT_THROW(RestoreBackup(editor), std::runtime_error);
  }
  EXPECT_TRUE(FilesOf(".") == before);
  EXPECT_FALSE(state.RestoreIsPending);
}

TEST_F(RestoreBackupCommand, WaitsForTheEndOfAnUpdate) {
  const UpdateLock update(folder.Path());
  EXPECT_THROW(RestoreBackup(editor), UpdateRunning);
  EXPECT_THAT(dialogs.asked, IsEmpty());
  EXPECT_FALSE(fs::exists("backups"));
}

TEST_F(RestoreBackupCommand, DoesNotBeginWhenAnUpdateHasBegunMeanwhile) {
  PutFile("workouts/Legs.RPV", "other");
  const auto before = FilesOf(".");
  std::optional<UpdateLock> update;
  dialogs.whenWorkEnds = [&] { update.emplace(folder.Path()); };
  dialogs.answers = {Backup(), "OK"};
  EXPECT_THROW(RestoreBackup(editor), UpdateRunning);
  EXPECT_TRUE(FilesOf(".") == before);
}

TEST_F(RestoreBackupCommand, ExchangesPathsWhereThePersonSaysSo) {
  dialogs.restoreAnswer = {{WithoutSeparator(folder.Path()), "/home/new"}};
  state.Workout[0].NumberOfMusicFiles = 1;
  state.Workout[0].MusicFile[0] = folder.Path() + "music/a.mp3";
  SaveWorkout(state);
  WriteBackup(Backup(), OriginHere(folder.Path(), clock.Now()));
  Restore();
  EXPECT_EQ(state.Settings.MusicPath.Text(), "/home/new/music");
  EXPECT_EQ(state.Workout[0].MusicFile[0].Text(), "/home/new/music/a.mp3");
  EXPECT_THAT(dialogs.restorePlan,
              ElementsAre("Replaces the settings.", "Replaces 1 workout: Monday.",
                          "4 files are here already, just the same."));
}

TEST_F(RestoreBackupCommand, ProposesFoldersThatAreGone) {
  fs::rename("music", "songs");
  dialogs.answers = {Backup(), ""};
  RestoreBackup(editor);
  EXPECT_THAT(dialogs.proposals, ElementsAre(PathExchange{folder.Path() + "music", ""}));
}

TEST_F(RestoreBackupCommand, ShowsHowFarTheComparisonIsAndCanStopIt) {
  const auto before = FilesOf(".");
  dialogs.whenWorkEnds = [&] { dialogs.stopAt = 0; };
  dialogs.answers = {Backup(), "OK"};
  EXPECT_THROW(RestoreBackup(editor), std::runtime_error);
  EXPECT_EQ(dialogs.asked.back(), "work|Comparing ...");
  EXPECT_TRUE(FilesOf(".") == before);
}

TEST_F(RestoreBackupCommand, NeverReplacesAVersion) {
  const std::string path = VersionsOf("Monday.RPV").at(0).path;
  PutFile(path, "another");
  Restore();
  EXPECT_EQ(GetTextFile(path), "another");
  EXPECT_EQ(GetTextFile(NextVersionPath(path)), saved_.at(path));
}

/// The files of a restore that was decided, but of which one could not be put in place.
class RestoreThatStopsHalfWay : public RestoreBackupCommand {
 protected:
  RestoreThatStopsHalfWay() {
    Forget();
    LoadSettings(state);
    LoadWorkoutNames(state);
    dialogs.answers = {Backup(), "OK"};
    // The place is taken after everything has been looked at.
    dialogs.whenWorkEnds = [this] {
      if (dialogs.asked.back() == "work|Restoring ...") PutFile("workouts/Monday.RPV/x", "");
    };
    EXPECT_THROW(RestoreBackup(editor), RestoreUnfinished);
    dialogs.whenWorkEnds = {};
  }
};

TEST_F(RestoreThatStopsHalfWay, LetsNothingBeSaved) {
  EXPECT_TRUE(state.RestoreIsPending);
  EXPECT_THROW(SaveSettings(state), FileError);
  EXPECT_THROW(FinishPendingRestore(editor), RestoreUnfinished);
  EXPECT_THROW(RestoreBackup(editor), RestoreUnfinished);
  EXPECT_TRUE(IsRestorePending(""));
}

TEST_F(RestoreThatStopsHalfWay, IsFinishedByTheNextCommand) {
  fs::remove_all("workouts/Monday.RPV");
  EXPECT_THROW(FinishPendingRestore(editor), WorkoutReplaced);
  EXPECT_TRUE(FilesOf(".") == saved_);
  EXPECT_FALSE(state.RestoreIsPending);
  EXPECT_EQ(state.Settings.DefaultExerciseTime, 5);
  EXPECT_NO_THROW(FinishPendingRestore(editor));
  SaveSettings(state);
}

}  // namespace
}  // namespace repvolta
