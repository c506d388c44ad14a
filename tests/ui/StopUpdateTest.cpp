#include "support/FormFixture.h"

namespace repvolta {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

/// The main window while the person presses Stop in the progress window.
class StopUpdate : public FormFixture {
 protected:
  StopUpdate() {
    ExerciseRecord& exercise = AddExercise("Squat");
    exercise.NumberOfSets = 1;
    exercise.SetValue1[0] = 50;
    exercise.SetIncrement1[0] = exercise.SetFrequency1[0] = 1;
    exercise.NextUpdate1[0] = kToday - 9;
    Show();
  }

  /// Stops when the window shows a line that begins so.
  void StopAt(const std::string& line) {
    progress.whenLine = [this, line] {
      if (progress.lines.back().starts_with(line)) progress.stop();
    };
  }
};

TEST_F(StopUpdate, LeavesTheProgramRunning) {
  int ended = 0;
  QObject::connect(form.get(), &RepvoltaForm::Ended, form.get(), [&] { ++ended; });
  StopAt("RV001");

  Click("UpdateSelectedWorkoutButton");

  EXPECT_EQ(ended, 0);
  EXPECT_TRUE(form->isVisible());
  EXPECT_TRUE(progress.visible);
  EXPECT_EQ(progress.ended, 1);
  EXPECT_THAT(progress.lines, Contains(StartsWith("STOPPED: ")));
  EXPECT_THAT(progress.lines, Not(Contains("UPDATE COMPLETE.")));
  EXPECT_THAT(dialogs.asked, IsEmpty());
}

TEST_F(StopUpdate, ShowsTheGrownWorkoutThatIsSaved) {
  OpenTab(1);
  StopAt("RV001");
  Click("UpdateSelectedWorkoutButton");
  EXPECT_EQ(Saved()[0].SetValue1[0], 51);
  EXPECT_THAT(Rows("SetList1"), ElementsAre("51"));
}

TEST_F(StopUpdate, ShowsTheWorkoutAsBeforeWhenItIsNotSaved) {
  OpenTab(1);
  StopAt("Updated Field 1");
  Click("UpdateSelectedWorkoutButton");
  EXPECT_EQ(Saved()[0].SetValue1[0], 50);
  EXPECT_THAT(Rows("SetList1"), ElementsAre("50"));
}

TEST_F(StopUpdate, IsForgottenAtTheNextCommand) {
  StopAt("Updating");
  Click("UpdateSelectedWorkoutButton");
  progress.whenLine = {};
  EXPECT_FALSE(form->StopRequested());

  Click("UpdateSelectedWorkoutButton");

  EXPECT_EQ(progress.lines.back(), "UPDATE COMPLETE.");
  EXPECT_EQ(progress.shares.back(), 100);
}

TEST_F(StopUpdate, DoesNotUpdateTheWorkoutsThatAreLeft) {
  ListWorkouts({"Monday", "Tuesday"});
  Load("Monday.RPV");
  StopAt("Updating Workout Monday");

  Click("UpdateAllWorkoutsButton");

  EXPECT_EQ(progress.lines.back(), "STOPPED: Tuesday.RPV is not updated.");
  EXPECT_TRUE(progress.visible);
  EXPECT_THAT(dialogs.asked, IsEmpty());
  EXPECT_FALSE(std::filesystem::exists("player/Tuesday"));
  EXPECT_FALSE(Get<QWidget>("AddExerciseButton").isEnabled());
}

TEST_F(StopUpdate, DoesNotKeepTheProgramFromEnding) {
  int ended = 0;
  QObject::connect(form.get(), &RepvoltaForm::Ended, form.get(), [&] { ++ended; });
  progress.whenLine = [this] {
    progress.stop();
    form->close();
  };
  Click("UpdateSelectedWorkoutButton");
  EXPECT_EQ(ended, 1);
}

TEST_F(StopUpdate, ShowsTheProgressOfAnUpdateToItsEnd) {
  Click("UpdateSelectedWorkoutButton");
  ASSERT_FALSE(progress.shares.empty());
  EXPECT_EQ(progress.shares.front(), 0);
  EXPECT_TRUE(std::is_sorted(progress.shares.begin(), progress.shares.end()));
  EXPECT_EQ(progress.shares.back(), 100);
}

}  // namespace
}  // namespace repvolta
