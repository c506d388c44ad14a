#include "support/FormFixture.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

constexpr const char* kNotSaved = "\rThe change is shown, but it is not saved.";
constexpr const char* kShownInPart =
    "message|Repvolta|The workout cannot be shown as a whole.\rThe number is too large";

/// The second of three exercises, with three sets and three songs, when files cannot be written or
/// the screen cannot show everything.
class UnsavedChange : public FormFixture {
 protected:
  UnsavedChange() {
    for (const char* name : {"Run", "Squat", "Row"}) AddExercise(name);
    ExerciseRecord& exercise = state.Workout[1];
    exercise.NumberOfSets = 3;
    exercise.NumberOfMusicFiles = 3;
    for (int i = 0; i < 3; ++i) {
      exercise.SetValue1[i] = static_cast<float>(i + 1);
      exercise.MusicFile[i] = std::string(1, static_cast<char>('a' + i)) + ".mp3";
    }
    Show();
    ClickRow("ExerciseList", 1);
  }

  ExerciseRecord& Exercise() { return state.Workout[1]; }

  /// Runs the command while no workout can be saved, and expects a message about that.
  void ExpectUnsaved(const std::function<void()>& act) {
    dialogs.asked.clear();
    BlockWorkouts();
    act();
    ASSERT_THAT(dialogs.asked, Not(IsEmpty()));
    EXPECT_THAT(dialogs.asked.back(), HasSubstr("workouts/Monday.RPV could not be"));
    EXPECT_THAT(dialogs.asked.back(), EndsWith(kNotSaved));
    std::filesystem::remove("workouts");
    std::filesystem::rename("workouts before", "workouts");
  }
};

TEST_F(UnsavedChange, OfTheExercisesIsToldAndShown) {
  dialogs.answers = {"Bench", "OK", "OK"};
  ExpectUnsaved([this] { Click("EditExerciseNameButton"); });
  EXPECT_THAT(Rows("ExerciseList"), ElementsAre("Run", "Bench", "Row"));
  ExpectUnsaved([this] { Click("MoveUpExerciseListButton"); });
  EXPECT_THAT(Rows("ExerciseList"), ElementsAre("Bench", "Run", "Row"));
  ExpectUnsaved([this] { Click("RemoveExerciseButton"); });
  EXPECT_THAT(Rows("ExerciseList"), ElementsAre("Run", "Row"));
  EXPECT_EQ(Saved()[1].ExerciseName.Text(), "Squat");
}

TEST_F(UnsavedChange, OfTheSetsIsToldAndShownWithItsRowSelected) {
  OpenTab(1);
  ClickRow("SetList1", 2);
  dialogs.answers = {"OK", "OK"};
  ExpectUnsaved([this] { Click("MoveSetUpListButton"); });
  EXPECT_THAT(Rows("SetList1"), ElementsAre("1", "3", "2"));
  EXPECT_EQ(List("SetList1").SelectedRow(), 1);
  ClickRow("SetList1", 2);
  ExpectUnsaved([this] { Click("RemoveSelectedSetButton"); });
  EXPECT_THAT(Rows("SetList1"), ElementsAre("1", "3"));
  EXPECT_EQ(List("SetList1").SelectedRow(), 1);
  ExpectUnsaved([this] { Click("ManualDateResetButton"); });
  ExpectUnsaved([this] { Click("SetButton_2"); });
  EXPECT_EQ(Text("SetListLabel1"), "Distance");
  ExpectUnsaved([this] { Click("UnitsSelection_1"); });
  EXPECT_TRUE(Get<QAbstractButton>("UnitsSelection_1").isChecked());
}

TEST_F(UnsavedChange, OfTheMusicIsToldAndShownWithItsRowSelected) {
  OpenTab(1);
  ClickRow("MusicList", 2);
  dialogs.answers = {"OK", "OK", "2"};
  ExpectUnsaved([this] { Click("MoveMusicFileUpListButton"); });
  EXPECT_THAT(Rows("MusicList"), ElementsAre("a.mp3", "c.mp3", "b.mp3"));
  EXPECT_EQ(List("MusicList").SelectedRow(), 1);
  ClickRow("MusicList", 2);
  ExpectUnsaved([this] { Click("RemoveMusicFileButton"); });
  EXPECT_THAT(Rows("MusicList"), ElementsAre("a.mp3", "c.mp3"));
  EXPECT_EQ(List("MusicList").SelectedRow(), 1);
  ExpectUnsaved([this] { Click("SetExerciseTimeButton"); });
  EXPECT_EQ(Text("EstimatedExerciseTimeLabel"), "Target Exercise Time = 02:00");
  ExpectUnsaved([this] { Click("RandomMusicCheckBox"); });
  EXPECT_TRUE(Get<QAbstractButton>("RandomMusicCheckBox").isChecked());
}

TEST_F(UnsavedChange, OfANumberIsToldAndShown) {
  OpenTab(1);
  ClickRow("SetList1", 2);
  dialogs.answers = {"77"};
  ExpectUnsaved([this] { QTest::keyClick(&List("SetList1"), Qt::Key_Return); });
  EXPECT_THAT(Rows("SetList1"), ElementsAre("1", "2", "77"));
}

TEST_F(UnsavedChange, IsSavedWithTheNextOne) {
  OpenTab(1);
  ExpectUnsaved([this] { Click("UnitsSelection_1"); });
  Click("RandomMusicCheckBox");
  EXPECT_EQ(Saved()[1].Units, kTrue);
}

TEST_F(UnsavedChange, OfTheSettingsIsToldAndShown) {
  BlockSettings();
  OpenTab(2);
  dialogs.answers = {"/elsewhere", "/other", "7"};
  for (const char* button : {"MusicPathButton", "OutputPathButton", "ExerciseTimeButton",
                             "IncludeWeightValuesCheck", "AutoLoadPLaylistCheckbox"}) {
    Click(button);
    EXPECT_THAT(dialogs.asked.back(), HasSubstr("settings.dat could not be")) << button;
    EXPECT_THAT(dialogs.asked.back(), EndsWith(kNotSaved)) << button;
  }
  EXPECT_EQ(state.Settings.MusicPath.Text(), "/elsewhere");
  EXPECT_EQ(state.Settings.DefaultExerciseTime, 7);
}

TEST_F(UnsavedChange, IsNotToldOfATimeThatWasSavedBeforeTheWorkoutFailed) {
  OpenTab(2);
  BlockWorkouts();
  dialogs.answers = {"7"};
  Click("ExerciseTimeButton");
  EXPECT_THAT(dialogs.asked.back(), HasSubstr("workouts/Monday.RPV could not be"));
  EXPECT_THAT(dialogs.asked.back(), Not(HasSubstr(kNotSaved)));
  EXPECT_EQ(SavedSettings().DefaultExerciseTime, 7);
}

TEST_F(UnsavedChange, IsNoneWhereOnlyTheScreenCannotShowItAll) {
  state.Workout[0].TotalMusicTime = state.Workout[1].TotalMusicTime = 20000;
  SaveWorkout(state);
  dialogs.answers = {"Bench"};
  Click("EditExerciseNameButton");
  EXPECT_THAT(dialogs.asked, SizeIs(2));
  EXPECT_EQ(dialogs.asked[1], kShownInPart);
  EXPECT_EQ(Saved()[1].ExerciseName.Text(), "Bench");
}

TEST_F(UnsavedChange, IsNoneWhereTheKindOfSetsCannotBeShown) {
  OpenTab(1);
  Exercise().NumberOfSets = 18;
  SaveWorkout(state);
  Click("SetButton_2");
  EXPECT_EQ(Saved()[1].SetType, kDistanceAndSpeed);
  ASSERT_THAT(dialogs.asked, SizeIs(1));
  EXPECT_THAT(dialogs.asked[0], HasSubstr("The exercise cannot be shown as a whole.\rNumber 17"));
}

}  // namespace
}  // namespace repvolta
