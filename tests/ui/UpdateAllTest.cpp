#include "support/FormFixture.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

/// "Update ALL Workouts" for three workouts, the second of which has more music than its tab can
/// show.
class UpdateAll : public FormFixture {
 protected:
  UpdateAll() {
    ListWorkouts({"Monday", "Tuesday", "Wednesday"});
    Fill("Monday.RPV", "Squat", 600);
    Fill("Tuesday.RPV", "Row", 7000);
    Fill("Wednesday.RPV", "Press", 600);
    Load("Monday.RPV");
  }

  /// Five exercises with a weight that is due to grow.
  void Fill(const std::string& fileName, const std::string& name, std::int16_t musicTime) {
    ExerciseSlots workout;
    for (int i = 0; i < MaxExercises; ++i) {
      InitialiseExercise(workout[i], state.Settings, clock.Today());
      workout[i].ExerciseName = name;
      workout[i].TotalMusicTime = musicTime;
      workout[i].NumberOfSets = 1;
      workout[i].SetValue1[0] = 50;
      workout[i].SetIncrement1[0] = workout[i].SetFrequency1[0] = 1;
      workout[i].NextUpdate1[0] = kToday - 9;
    }
    PutFile("workouts/" + fileName, EncodeWorkout(workout));
  }
};

TEST_F(UpdateAll, GoesOnBehindAWorkoutThatCannotBeShown) {
  Click("UpdateAllWorkoutsButton");
  ASSERT_THAT(dialogs.asked, SizeIs(2));
  EXPECT_THAT(dialogs.asked[0], HasSubstr("Tuesday.RPV cannot be shown as a whole"));
  EXPECT_EQ(dialogs.asked[1], "message|Repvolta|Update COMPLETED on all Workouts");
  EXPECT_EQ(progress.shown, 3);
  for (const char* name : {"Monday", "Tuesday", "Wednesday"}) {
    EXPECT_EQ(Saved(std::string(name) + ".RPV")[4].SetValue1[0], 51) << name;
    EXPECT_TRUE(std::filesystem::exists(std::string("player/") + name)) << name;
  }
}

TEST_F(UpdateAll, EndsAsAlways) {
  Click("UpdateAllWorkoutsButton");
  EXPECT_EQ(state.WorkoutFileName, "");
  EXPECT_FALSE(progress.visible);
  EXPECT_EQ(Get<QComboBox>("WorkoutDropBox").currentText(), "Monday.RPV");
  EXPECT_THAT(Rows("ExerciseList"), ElementsAre("Press", "Press", "Press", "Press", "Press"));
  EXPECT_EQ(Rows("ExerciseSummaryList").size(), 5U);
  EXPECT_EQ(Text("TotalWorkoutMusicTimeLabel"), "50:00");
  EXPECT_FALSE(Get<QWidget>("AddExerciseButton").isEnabled());
}

}  // namespace
}  // namespace repvolta
