#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RecordFormat.h"
#include "base/Days.h"
#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/ProgramFiles.h"
#include "keeping/VersionList.h"

#include "support/OrdinaryRights.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class VersionList : public testing::Test {
 protected:
  VersionList() { fs::create_directory("workouts"); }

  /// A version of the workout, that of the given hour.
  static void Keep(const std::string& workout, int hour, const std::string& content = "1") {
    PutFile("workouts/" + workout + ".RPV", content + std::to_string(hour));
    KeepVersion("workouts/" + workout + ".RPV", BeforeWhat::kUpdate,
                DateOf(2026, 11, 22) + hour / 24.0);
  }

  static void Delete(const std::string& workout) { fs::remove("workouts/" + workout + ".RPV"); }

  static std::vector<std::string> Names(const std::string& present) {
    std::vector<std::string> names;
    for (const KeptWorkout& kept : ListKeptWorkouts(present)) {
      names.push_back(kept.fileName + (kept.isDeleted ? " deleted" : ""));
    }
    return names;
  }

  static std::vector<std::string> Files(const KeptWorkout& kept) {
    std::vector<std::string> names;
    for (const Version& version : kept.versions) names.push_back(FileName(version.path));
    return names;
  }

  TemporaryFolder folder_;
};

TEST_F(VersionList, IsEmptyBeforeAnythingWasKept) { EXPECT_THAT(ListKeptWorkouts(""), IsEmpty()); }

TEST_F(VersionList, BeginsWithThePresentWorkoutAlsoWithoutVersions) {
  Keep("Monday", 1);
  PutFile("workouts/Tuesday.RPV", "");
  EXPECT_THAT(Names("Tuesday.RPV"), ElementsAre("Tuesday.RPV", "Monday.RPV"));
}

TEST_F(VersionList, HasWorkoutsThatAreThereBeforeDeletedOnes) {
  for (const char* workout : {"cold", "Arms", "zoo", "Back"}) Keep(workout, 1);
  Delete("cold");
  Delete("Arms");
  EXPECT_THAT(Names("zoo.RPV"),
              ElementsAre("zoo.RPV", "Back.RPV", "Arms.RPV deleted", "cold.RPV deleted"));
}

TEST_F(VersionList, LeavesOutOtherWorkoutsWithoutVersions) {
  Keep("Monday", 1);
  PutFile("workouts/Tuesday.RPV", "");
  EXPECT_THAT(Names("Monday.RPV"), ElementsAre("Monday.RPV"));
}

TEST_F(VersionList, HasTheNewestVersionFirst) {
  for (const int hour : {1, 2, 3}) Keep("Monday", hour);
  EXPECT_THAT(
      Files(ListKeptWorkouts("Monday.RPV")[0]),
      ElementsAre("2026-11-22 03.00.00 before update.RPV", "2026-11-22 02.00.00 before update.RPV",
                  "2026-11-22 01.00.00 before update.RPV"));
}

TEST_F(VersionList, GivesAWorkoutTheVersionsOfItsNameInAnotherCase) {
  Keep("monday", 1);
  Delete("monday");
  Keep("Monday", 2);
  const auto list = ListKeptWorkouts("");
  ASSERT_EQ(list.size(), 1U);
  EXPECT_EQ(list[0].fileName, "Monday.RPV");
  EXPECT_EQ(list[0].versions.size(), 2U);
}

TEST_F(VersionList, GivesTwoWorkoutsThatDifferInCaseTheirOwnVersions) {
  Keep("monday", 1);
  Keep("Monday", 2);
  const auto list = ListKeptWorkouts("monday.RPV");
  ASSERT_EQ(list.size(), 2U);
  EXPECT_THAT(Files(list[0]), ElementsAre("2026-11-22 01.00.00 before update.RPV"));
  EXPECT_THAT(Files(list[1]), ElementsAre("2026-11-22 02.00.00 before update.RPV"));
}

TEST_F(VersionList, KnowsThatThePresentWorkoutWasDeleted) {
  Keep("Monday", 1);
  Delete("Monday");
  EXPECT_THAT(Names("Monday.RPV"), ElementsAre("Monday.RPV deleted"));
}

TEST_F(VersionList, LeavesOutWhatIsNoVersion) {
  PutFile("versions/Monday/next", "");
  PutFile("versions/Monday/notes.txt", "");
  PutFile("versions/2026-11-22 01.00.00 before update.RPV", "");
  EXPECT_THAT(ListKeptWorkouts(""), IsEmpty());
}

TEST_F(VersionList, SaysWhichFolderCannotBeRead) {
  Keep("Monday", 1);
  Keep("Tuesday", 1);
  const OrdinaryRights rights;
  fs::permissions("versions/Monday", fs::perms::none);
  const auto list = ListKeptWorkouts("");
  fs::permissions("versions/Monday", fs::perms::owner_all);
  ASSERT_EQ(list.size(), 2U);
  EXPECT_THAT(list[0].failure, HasSubstr("versions/Monday/ could not be read"));
  EXPECT_EQ(list[1].versions.size(), 1U);
}

TEST_F(VersionList, CannotBeMadeWhereAFileIsInTheWay) {
  PutFile("versions", "");
  EXPECT_THROW(ListKeptWorkouts(""), FileError);
}

ExerciseSlots SampleWorkout() {
  ExerciseSlots workout;
  workout[0].ExerciseName = " Squat";
  workout[1].ExerciseName = "Row";
  workout[3].ExerciseName = "behind the end";
  return workout;
}

TEST(WorkoutContent, HasTheExercisesInUseAndTheBytes) {
  const Bytes bytes = EncodeWorkout(SampleWorkout());
  const WorkoutContent content = WorkoutContentOf(bytes);
  ASSERT_EQ(content.exercises.size(), 2U);
  EXPECT_EQ(content.exercises[0].ExerciseName.Text(), "Squat");
  EXPECT_EQ(content.bytes, bytes);
  EXPECT_EQ(content.damage, "");
}

TEST(WorkoutContent, IsDamagedByAnotherSize) {
  Bytes bytes = EncodeWorkout(SampleWorkout());
  bytes.pop_back();
  EXPECT_EQ(WorkoutContentOf(bytes).damage,
            "It has 266239 bytes instead of the 266240 of a workout.");
  EXPECT_EQ(WorkoutContentOf({0}).damage, "It has 1 byte instead of the 266240 of a workout.");
}

TEST(WorkoutContent, IsDamagedByTooMuchWithoutReadingAllOfIt) {
  const TemporaryFolder folder;
  PutFile("large", "");
  fs::resize_file("large", 4'000'000'000);
  const WorkoutContent content = ReadWorkoutContent("large");
  EXPECT_EQ(content.damage, "It has more bytes than the 266240 of a workout.");
}

TEST(WorkoutContent, IsDamagedByNumbersThatNoWorkoutCanHave) {
  ExerciseSlots workout = SampleWorkout();
  workout[1].NumberOfSets = 18;
  EXPECT_EQ(WorkoutContentOf(EncodeWorkout(workout)).damage,
            "It holds numbers that no workout can have.");
  workout[1].NumberOfSets = 17;
  EXPECT_EQ(WorkoutContentOf(EncodeWorkout(workout)).damage, "");
}

TEST(WorkoutContent, CannotBeReadWhenTheFileIsGone) {
  const TemporaryFolder folder;
  EXPECT_THROW(ReadWorkoutContent("gone"), FileError);
}

}  // namespace
}  // namespace repvolta
