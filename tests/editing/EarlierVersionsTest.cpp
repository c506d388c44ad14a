#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RecordFormat.h"
#include "base/Days.h"
#include "editing/EarlierVersions.h"
#include "keeping/Versions.h"

#include "support/OrdinaryRights.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

ExerciseSlots WorkoutOf(float weight) {
  ExerciseSlots workout;
  workout[0].ExerciseName = "Squat";
  workout[0].NumberOfSets = 1;
  workout[0].SetValue1[0] = weight;
  return workout;
}

/// "Monday" is 50 today and was 40 at 5:32.
class EarlierVersionsOfWorkout : public testing::Test {
 protected:
  EarlierVersionsOfWorkout() {
    Put(40);
    Keep(kTime, BeforeWhat::kUpdate);
    Put(50);
  }

  static void Put(float weight) { PutFile(kMonday, EncodeWorkout(WorkoutOf(weight))); }
  static void Keep(double time, BeforeWhat before) { KeepVersion(kMonday, before, time); }
  static std::string PathOfVersion() { return VersionsOf("Monday.RPV")[0].path; }
  static VersionView View() { return EarlierVersions("Monday.RPV").View(0, 0); }

  static constexpr const char* kMonday = "workouts/Monday.RPV";
  static inline const double kTime = DateOf(2026, 11, 22) + (5 * 60 + 32) / 1440.0;

  TemporaryFolder folder_;
};

TEST_F(EarlierVersionsOfWorkout, HaveTheirTimeReasonAndContent) {
  EXPECT_THAT(
      EarlierVersions("Monday.RPV").Rows(0),
      ElementsAre(ElementsAre("Sun 22 Nov 2026, 05:32", "before an update", "1 exercise: Squat")));
}

TEST_F(EarlierVersionsOfWorkout, HaveTheMinuteOfTheirNamesThroughoutTheDay) {
  for (int minute = 0; minute < 1440; minute += 131) {
    fs::remove_all("versions");
    Keep(DateOf(2026, 11, 22) + minute / 1440.0, BeforeWhat::kChange);
    const std::string name = fs::path(PathOfVersion()).filename();
    const std::string time = EarlierVersions("").Rows(0)[0][kVersionTime];
    EXPECT_EQ(time, "Sun 22 Nov 2026, " + name.substr(11, 2) + ":" + name.substr(14, 2));
  }
}

TEST_F(EarlierVersionsOfWorkout, SayWhatHappenedAfterThem) {
  fs::remove_all("versions");
  int hour = 0;
  for (const BeforeWhat before :
       {BeforeWhat::kChange, BeforeWhat::kUpdate, BeforeWhat::kReplacement, BeforeWhat::kDeletion,
        BeforeWhat::kRestore}) {
    Put(static_cast<float>(hour));
    Keep(kTime + ++hour / 24.0, before);
  }
  std::vector<std::string> reasons;
  for (const VersionRow& row : EarlierVersions("").Rows(0)) reasons.push_back(row[kVersionReason]);
  EXPECT_THAT(reasons, ElementsAre("before an earlier version was restored",
                                   "before it was deleted", "before a new workout took its name",
                                   "before an update", "before the first change of the day"));
}

TEST_F(EarlierVersionsOfWorkout, SayWhatWouldChange) {
  const VersionView view = View();
  EXPECT_EQ(view.heading, "What would change");
  EXPECT_EQ(view.text, "Squat, set 1: Weight 40 instead of 50");
  EXPECT_TRUE(view.canBeRestored);
}

TEST_F(EarlierVersionsOfWorkout, SayThatNothingWouldChange) {
  Put(40);
  EXPECT_EQ(View().text, "There is no difference.");
  EXPECT_FALSE(View().canBeRestored);
}

TEST_F(EarlierVersionsOfWorkout, SayWhatADeletedWorkoutHad) {
  fs::remove(kMonday);
  const EarlierVersions versions("");
  EXPECT_THAT(versions.Workouts(), ElementsAre("Monday (deleted)"));
  const VersionView view = versions.View(0, 0);
  EXPECT_EQ(view.heading, "What is in it");
  EXPECT_EQ(view.text, "Squat: 01 sets, 00:00 Exercise, 00:00 Music");
  EXPECT_TRUE(view.canBeRestored);
}

TEST_F(EarlierVersionsOfWorkout, CannotBeRestoredWhenTheyAreDamaged) {
  PutFile(PathOfVersion(), "short");
  const EarlierVersions versions("Monday.RPV");
  EXPECT_EQ(versions.Rows(0)[0][kVersionContent], "damaged");
  EXPECT_EQ(versions.View(0, 0).text,
            "This version is damaged and cannot be restored. It has 5 bytes instead of the 266240 "
            "of a workout.");
  EXPECT_FALSE(versions.View(0, 0).canBeRestored);
  EXPECT_FALSE(versions.Read(0, 0).has_value());
}

TEST_F(EarlierVersionsOfWorkout, CannotBeRestoredWhenTheyCannotBeRead) {
  const OrdinaryRights rights;
  fs::permissions(PathOfVersion(), fs::perms::none);
  const EarlierVersions versions("Monday.RPV");
  EXPECT_EQ(versions.Rows(0)[0][kVersionContent], "cannot be read");
  EXPECT_THAT(versions.View(0, 0).text, StartsWith("This version cannot be restored. versions/"));
  EXPECT_FALSE(versions.View(0, 0).canBeRestored);
  EXPECT_FALSE(versions.View(0, 0).isGone);
}

TEST_F(EarlierVersionsOfWorkout, MayBeGoneSinceTheyWereListed) {
  EarlierVersions versions("Monday.RPV");
  fs::remove(PathOfVersion());
  EXPECT_EQ(versions.View(0, 0).text, "This version is no longer there.");
  EXPECT_TRUE(versions.View(0, 0).isGone);
  EXPECT_FALSE(versions.Read(0, 0).has_value());
  versions.Refresh();
  EXPECT_TRUE(versions.AreNone());
  EXPECT_EQ(versions.Remark(0), "No version of Monday is kept.");
}

TEST_F(EarlierVersionsOfWorkout, CanBeRestoredWhereTheWorkoutOfTodayIsDamaged) {
  PutFile(kMonday, "");
  EXPECT_EQ(View().text,
            "The workout as it is today is damaged and cannot be compared. It has 0 bytes instead "
            "of the 266240 of a workout.\nSquat: 01 sets, 00:00 Exercise, 00:00 Music");
  EXPECT_TRUE(View().canBeRestored);
}

TEST_F(EarlierVersionsOfWorkout, ReplaceNoWorkoutThatCannotBeReadToday) {
  const OrdinaryRights rights;
  fs::permissions(kMonday, fs::perms::none);
  EXPECT_THAT(View().text, HasSubstr("so it is not replaced. workouts/Monday.RPV could not be"));
  EXPECT_FALSE(View().canBeRestored);
}

TEST_F(EarlierVersionsOfWorkout, AreReadAsTheyAre) {
  const auto chosen = EarlierVersions("Monday.RPV").Read(0, 0);
  ASSERT_TRUE(chosen.has_value());
  EXPECT_EQ(chosen->fileName, "Monday.RPV");
  EXPECT_EQ(chosen->bytes, EncodeWorkout(WorkoutOf(40)));
}

TEST_F(EarlierVersionsOfWorkout, OfAnEmptyWorkoutSayThatThereAreNoExercises) {
  fs::remove_all("versions");
  PutFile(kMonday, EncodeWorkout({}));
  Keep(kTime, BeforeWhat::kUpdate);
  fs::remove(kMonday);
  EXPECT_EQ(View().text, "No exercises");
}

}  // namespace
}  // namespace repvolta
