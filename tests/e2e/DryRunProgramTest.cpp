#include <gmock/gmock.h>

#include "base/ProgramFiles.h"
#include "update/UpdateLock.h"

#include "e2e/PortableProgram.h"
#include "support/UnreadableFile.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

/// What is in a folder, and when each folder and file was last changed.
std::map<std::string, std::pair<std::string, fs::file_time_type>> Look(const std::string& root) {
  std::map<std::string, std::pair<std::string, fs::file_time_type>> entries;
  for (const auto& [path, content] : Snapshot(root)) {
    entries[path] = {content, fs::last_write_time(path)};
  }
  entries[root] = {"", fs::last_write_time(root)};
  return entries;
}

/// The workout "Monday": its squat is due to grow and has a song.
class DryRunProgram : public PortableProgram {
 protected:
  DryRunProgram() {
    PutFile("music/Song.mp3", SongBytes(4));
    Begin("Monday");
    ExerciseRecord& exercise = AddExercise("Squat");
    exercise.NumberOfSets = 1;
    exercise.SetValue1[0] = 50;
    exercise.SetIncrement1[0] = 2.5;
    exercise.SetFrequency1[0] = 7;
    exercise.NextUpdate1[0] = 39166;
    exercise.NumberOfMusicFiles = 1;
    exercise.MusicFile[0] = Full("music/Song.mp3");
    SaveBegun();
  }

  /// Makes no recording of the name, so that the update would have it spoken.
  void AddUnspoken() {
    Begin("Tuesday");
    AddExercise("Zweihänderheben");
    SaveBegun();
  }

  void ExpectValid(const std::string& json) {
    PutFile("plan.json", json);
    const ProgramRun run = RunProgram(
        "/usr/bin/python3", {"-m", "jsonschema", "-i", "plan.json", REPVOLTA_PLAN_SCHEMA});
    EXPECT_EQ(run.status, 0) << run.output << run.errors << json;
  }
};

TEST_F(DryRunProgram, ShowsWhatGrowsAndWhatIsWritten) {
  const ProgramRun run = Update({"--dry-run"});
  EXPECT_EQ(run.status, 0) << run.output << run.errors;
  EXPECT_EQ(run.errors, "");
  EXPECT_THAT(run.output, StartsWith("Monday.RPV on "));
  EXPECT_THAT(run.output, HasSubstr("    Set 1, field 1 grows from 50 to 52.5\n"));
  EXPECT_THAT(run.output, HasSubstr("  RV002-Song.mp3\n"));
  EXPECT_THAT(run.output, HasSubstr("  Folder: " + Full("player/Monday/") + "\n"));
}

TEST_F(DryRunProgram, WritesAndChangesNothing) {
  AddUnspoken();
  const auto before = Look(".");
  Update({"--dry-run"});
  Update({"--json", "tuesday", "--dry-run"});
  EXPECT_EQ(Look("."), before);
}

TEST_F(DryRunProgram, WorksWhereTheProgramDirectoryCannotBeWritten) {
  AddUnspoken();
  fs::remove("program/" + std::string(kUpdateLockFile));
  const std::string program = Full("program");
  const std::string readOnly =
      "mount --bind " + program + " " + program + " && mount -o remount,bind,ro " + program;
  const ProgramRun run = RunWithMounts(readOnly, {Full("program/repvolta-update"), "--dry-run"});
  EXPECT_EQ(run.status, 2) << run.output;
  EXPECT_THAT(run.errors, HasSubstr("update.lock could not be opened for writing"));
  EXPECT_THAT(run.output, HasSubstr("Zweihänderheben"));
}

TEST_F(DryRunProgram, EndsLikeTheUpdateWhereThePlayerCannotBeWritten) {
  const std::string player = Full("player");
  const std::string readOnly =
      "mount --bind " + player + " " + player + " && mount -o remount,bind,ro " + player;
  const ProgramRun run = RunWithMounts(readOnly, {Full("program/repvolta-update"), "--dry-run"});
  EXPECT_EQ(run.status, 1) << run.output << run.errors;
  EXPECT_THAT(run.output, HasSubstr("could not be created: Read-only file system"));
}

TEST_F(DryRunProgram, WorksWhileAnUpdateRuns) {
  const UpdateLock lock(Full("program/"));
  EXPECT_EQ(Update({"--dry-run"}).status, 0);
  EXPECT_EQ(Update().status, 2);
}

TEST_F(DryRunProgram, EndsLikeTheUpdate) {
  fs::remove("music/Song.mp3");
  EXPECT_EQ(Update({"--dry-run"}).status, 1);
  EXPECT_THAT(Update({"--dry-run"}).output, HasSubstr("\n  ERROR: "));
  EXPECT_EQ(Update().status, 1);
}

TEST_F(DryRunProgram, ShowsThePlanAlsoWithoutThePlayer) {
  fs::remove("player");
  const ProgramRun run = Update({"--dry-run"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.errors, "repvolta-update: " + Full("player") + " is not there\n");
  EXPECT_THAT(run.output, HasSubstr("grows from 50 to 52.5"));
}

TEST_F(DryRunProgram, DoesNotStartForAWorkoutThatDoesNotExist) {
  const ProgramRun run = Update({"--dry-run", "Someday"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.output, "");
  EXPECT_EQ(run.errors, "repvolta-update: There is no workout Someday\n");
}

TEST_F(DryRunProgram, DoesNotMakeTheFolderOfWorkouts) {
  fs::remove_all("program/workouts");
  EXPECT_EQ(Update({"--dry-run"}).status, 0);
  EXPECT_FALSE(fs::exists("program/workouts"));
}

TEST_F(DryRunProgram, GivesJsonAsTheSchemaDescribesIt) {
  const std::string json = Update({"--dry-run", "--json"}).output;
  ExpectValid(json);
  EXPECT_THAT(json, HasSubstr("\"to\": 52.5"));
}

TEST_F(DryRunProgram, GivesJsonAsTheSchemaDescribesItOfAllThatIsWrong) {
  AddUnspoken();
  fs::remove("program/lame.exe");
  fs::remove("program/voice/sets.wav");
  fs::remove("music/Song.mp3");
  PutFile("program/workouts/Damaged.RPV", "x");
  PutFile("program/options.conf", "odd\n");
  PutFile("program/musiclist.txt", Full("music/m\xfcsic.mp3") + "\n");
  PutFile("music/m\xfcsic.mp3", SongBytes(4));
  Begin("Random");
  ExerciseRecord& exercise = AddExercise("Squat");
  exercise.RandomMusic = kTrue;
  exercise.TargetExerciseTime = 1;
  exercise.NumberOfSets = 1;
  exercise.SetValue1[0] = std::numeric_limits<float>::infinity();
  exercise.SetFrequency1[0] = 1;
  exercise.SetFrequency2[0] = 1;
  exercise.NextUpdate2[0] = 1e300;
  SaveBegun();
  const ProgramRun run = Update({"--dry-run", "--json"});
  EXPECT_EQ(run.status, 1) << run.errors;
  ExpectValid(run.output);
}

TEST_F(DryRunProgram, DoesNotTakeJsonForAnUpdate) {
  const auto before = Look(".");
  const ProgramRun run = Update({"--json"});
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.errors, StartsWith("repvolta-update: --json needs --dry-run"));
  EXPECT_EQ(Look("."), before);
}

TEST_F(DryRunProgram, HelpsAndTellsItsVersionWithoutSettings) {
  fs::remove("program/settings.dat");
  const ProgramRun help = Update({"--help"});
  EXPECT_EQ(help.status, 0);
  EXPECT_THAT(help.output, StartsWith("Usage: repvolta-update "));
  const ProgramRun version = Update({"--version"});
  EXPECT_EQ(version.status, 0);
  EXPECT_EQ(version.output, "repvolta-update " REPVOLTA_VERSION "\n");
  EXPECT_THAT(help.errors + version.errors, IsEmpty());
}

}  // namespace
}  // namespace repvolta
