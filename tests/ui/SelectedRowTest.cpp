#include "editing/ScreenTexts.h"

#include "support/FormFixture.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// The person's selection when another process changes the workout before the command.
class SelectedRow : public FormFixture {
 protected:
  SelectedRow() {
    for (const char* name : {"Run", "Squat", "Row"}) {
      ExerciseRecord& exercise = AddExercise(name);
      exercise.NumberOfSets = 3;
      for (int i = 0; i < 3; ++i) {
        exercise.SetValue1[i] = static_cast<float>(10 * (i + 1));
        exercise.MusicFile[i] = "/music/" + std::to_string(i) + ".mp3";
      }
      exercise.NumberOfMusicFiles = 3;
    }
    Show();
  }

  /// Changes all exercises as another process would.
  template <class Change>
  void ChangeElsewhere(Change change) {
    ProgramState other = state;
    change(other.Workout);
    SaveWorkout(other);
  }

  /// Like an update: no row appears or disappears.
  void GrowElsewhere() {
    ChangeElsewhere([](ExerciseSlots& workout) {
      for (int i = 0; i < 3; ++i) workout[i].SetIncrement2[2] += 1;
    });
  }

  void SelectExerciseAndGrow(int row) {
    ClickRow("ExerciseList", row);
    ASSERT_NE(state.CurrentExercise, row);
    GrowElsewhere();
  }

  void OpenExercise(int row) {
    ClickRow("ExerciseList", row);
    OpenTab(1);
  }

  static std::vector<std::string> SavedNames() {
    std::vector<std::string> names;
    const ExerciseSlots workout = Saved();
    for (int i = 0; i < MaxExercises; ++i) {
      if (!workout[i].ExerciseName.IsBlank()) names.push_back(workout[i].ExerciseName.Text());
    }
    return names;
  }

  static std::vector<float> SavedValues(int exercise) {
    const ExerciseRecord record = Saved()[exercise];
    const auto begin = record.SetValue1.begin();
    return std::vector<float>(begin, begin + record.NumberOfSets);
  }

  static std::vector<std::string> SavedSongs(int exercise) {
    const ExerciseRecord record = Saved()[exercise];
    std::vector<std::string> songs;
    for (int i = 0; i < record.NumberOfMusicFiles; ++i) songs.push_back(record.MusicFile[i].Text());
    return songs;
  }
};

TEST_F(SelectedRow, IsRenamed) {
  SelectExerciseAndGrow(2);
  dialogs.answers = {"Bench"};
  Click("EditExerciseNameButton");
  EXPECT_THAT(dialogs.asked, ElementsAre("ask|Edit Exercise Name|Enter a new Exercise Name|Row"));
  EXPECT_THAT(SavedNames(), ElementsAre("Run", "Squat", "Bench"));
  EXPECT_EQ(Saved()[2].SetIncrement2[2], 1);
}

TEST_F(SelectedRow, IsRemoved) {
  SelectExerciseAndGrow(1);
  dialogs.answers = {"OK"};
  Click("RemoveExerciseButton");
  EXPECT_THAT(SavedNames(), ElementsAre("Run", "Row"));
}

TEST_F(SelectedRow, IsMovedUp) {
  SelectExerciseAndGrow(2);
  dialogs.answers = {"OK"};
  Click("MoveUpExerciseListButton");
  EXPECT_THAT(SavedNames(), ElementsAre("Run", "Row", "Squat"));
  EXPECT_EQ(List("ExerciseList").SelectedRow(), 1);
}

TEST_F(SelectedRow, IsOpenedByADoubleClickOnEitherList) {
  for (const char* list : {"ExerciseList", "ExerciseSummaryList"}) {
    OpenTab(0);
    state.CurrentExercise = 0;
    GrowElsewhere();
    DoubleClickRow(list, 2);
    EXPECT_EQ(state.CurrentExercise, 2) << list;
    EXPECT_EQ(Text("ExerciseNameLabel"), "Row") << list;
  }
}

TEST_F(SelectedRow, IsShownWhenTheTabIsTurned) {
  SelectExerciseAndGrow(1);
  OpenTab(1);
  EXPECT_EQ(Text("ExerciseNameLabel"), "Squat");
  EXPECT_EQ(state.CurrentExercise, 1);
}

TEST_F(SelectedRow, StaysSelectedInBothListsWhenACommandIsCancelled) {
  SelectExerciseAndGrow(1);
  dialogs.answers = {""};
  Click("AddExerciseButton");
  EXPECT_EQ(List("ExerciseList").SelectedRow(), 1);
  EXPECT_EQ(List("ExerciseSummaryList").SelectedRow(), 1);
}

TEST_F(SelectedRow, StaysSelectedAfterAnUpdate) {
  SelectExerciseAndGrow(1);
  Click("UpdateSelectedWorkoutButton");
  EXPECT_EQ(List("ExerciseList").SelectedRow(), 1);
}

TEST_F(SelectedRow, StaysNoneWhenNoneIsSelected) {
  List("ExerciseList").SelectRow(-1);
  GrowElsewhere();
  Click("RemoveExerciseButton");
  EXPECT_THAT(dialogs.asked, IsEmpty());
  EXPECT_THAT(SavedNames(), SizeIs(3));
}

TEST_F(SelectedRow, StaysWithItsExerciseWhenTheOthersAreElsewhere) {
  ClickRow("ExerciseList", 2);
  ChangeElsewhere([](ExerciseSlots& workout) { std::swap(workout[1], workout[2]); });
  Click("RemoveExerciseButton");
  EXPECT_THAT(dialogs.asked, SizeIs(1));  // that it was loaded again
  EXPECT_EQ(List("ExerciseList").SelectedRow(), 1);
  dialogs.answers = {"OK"};
  Click("RemoveExerciseButton");
  EXPECT_THAT(SavedNames(), ElementsAre("Run", "Squat"));
}

TEST_F(SelectedRow, IsNoneWhenItsExerciseIsNoMore) {
  ClickRow("ExerciseList", 2);
  ChangeElsewhere([](ExerciseSlots& workout) { workout[2].ExerciseName = "Bench"; });
  Click("RemoveExerciseButton");
  Click("RemoveExerciseButton");
  EXPECT_THAT(dialogs.asked, SizeIs(1));  // that it was loaded again
  EXPECT_THAT(SavedNames(), ElementsAre("Run", "Squat", "Bench"));
}

TEST_F(SelectedRow, StaysSelectedWhenACommandFails) {
  ClickRow("ExerciseList", 2);
  state.Settings.DefaultExerciseTime = 600;
  dialogs.answers = {"Press"};
  Click("AddExerciseButton");
  EXPECT_THAT(dialogs.asked, SizeIs(2));
  EXPECT_EQ(List("ExerciseList").SelectedRow(), 2);
  EXPECT_EQ(List("ExerciseSummaryList").SelectedRow(), 2);
}

TEST_F(SelectedRow, IsTheMovedOneAlsoWhenTheMoveCannotBeSaved) {
  ClickRow("ExerciseList", 2);
  BlockWorkouts();
  dialogs.answers = {"OK"};
  Click("MoveUpExerciseListButton");
  EXPECT_THAT(Rows("ExerciseList"), ElementsAre("Run", "Row", "Squat"));
  EXPECT_EQ(List("ExerciseList").SelectedRow(), 1);
}

TEST_F(SelectedRow, IsTheSetThatIsRemoved) {
  OpenExercise(2);
  ClickRow("FreqList2", 1);
  GrowElsewhere();
  dialogs.answers = {"OK"};
  Click("RemoveSelectedSetButton");
  EXPECT_THAT(SavedValues(2), ElementsAre(10, 30));
}

TEST_F(SelectedRow, IsTheSetThatIsMovedUp) {
  OpenExercise(2);
  ClickRow("SetList1", 2);
  GrowElsewhere();
  dialogs.answers = {"OK"};
  Click("MoveSetUpListButton");
  EXPECT_THAT(SavedValues(2), ElementsAre(10, 30, 20));
}

TEST_F(SelectedRow, IsTheSetWhoseDatesAreReset) {
  OpenExercise(2);
  ClickRow("NextUpdateList", 1);
  ChangeElsewhere([](ExerciseSlots& workout) {
    for (int i = 0; i < 3; ++i) workout[2].NextUpdate1[i] = kToday - 9;
  });
  Click("ManualDateResetButton");
  const ExerciseRecord saved = Saved()[2];
  EXPECT_EQ(saved.NextUpdate1[0], kToday - 9);
  EXPECT_EQ(saved.NextUpdate1[1], kToday);
  EXPECT_EQ(saved.NextUpdate1[2], kToday - 9);
}

TEST_F(SelectedRow, IsTheSetWhoseNumberADoubleClickChanges) {
  const std::vector<std::pair<const char*, SetSingles ExerciseRecord::*>> lists = {
      {"SetList1", &ExerciseRecord::SetValue1},
      {"SetList2", &ExerciseRecord::SetValue2},
      {"SetListInc1", &ExerciseRecord::SetIncrement1},
      {"SetListInc2", &ExerciseRecord::SetIncrement2},
      {"FreqList1", &ExerciseRecord::SetFrequency1},
      {"FreqList2", &ExerciseRecord::SetFrequency2}};
  OpenExercise(2);
  for (const auto& [list, numbers] : lists) {
    ClickRow(list, 1);
    GrowElsewhere();
    dialogs.answers = {"77"};
    QTest::keyClick(&List(list), Qt::Key_Return);
    EXPECT_EQ((Saved()[2].*numbers)[1], 77) << list;
    EXPECT_EQ(List("SetList1").SelectedRow(), 1) << list;
  }
}

TEST_F(SelectedRow, IsTheSetWhoseDatesADoubleClickShows) {
  OpenExercise(2);
  ClickRow("NextUpdateList", 1);
  ChangeElsewhere([](ExerciseSlots& workout) { workout[2].NextUpdate1[1] = 0; });
  QTest::keyClick(&List("NextUpdateList"), Qt::Key_Return);
  ASSERT_THAT(dialogs.asked, SizeIs(1));
  EXPECT_THAT(dialogs.asked[0], testing::HasSubstr("Field 1 Next Update Date: " + DateText(0)));
}

TEST_F(SelectedRow, IsTheMusicFileThatIsRemoved) {
  OpenExercise(2);
  ClickRow("MusicList", 1);
  GrowElsewhere();
  dialogs.answers = {"OK"};
  Click("RemoveMusicFileButton");
  EXPECT_THAT(SavedSongs(2), ElementsAre("/music/0.mp3", "/music/2.mp3"));
}

TEST_F(SelectedRow, IsTheMusicFileThatIsMovedUp) {
  OpenExercise(2);
  ClickRow("MusicList", 2);
  GrowElsewhere();
  dialogs.answers = {"OK"};
  Click("MoveMusicFileUpListButton");
  EXPECT_THAT(SavedSongs(2), ElementsAre("/music/0.mp3", "/music/2.mp3", "/music/1.mp3"));
}

TEST_F(SelectedRow, StaysWithItsMusicFileWhenTheOthersAreElsewhere) {
  OpenExercise(2);
  ClickRow("MusicList", 1);
  ChangeElsewhere(
      [](ExerciseSlots& workout) { std::swap(workout[2].MusicFile[0], workout[2].MusicFile[1]); });
  Click("RemoveMusicFileButton");
  EXPECT_THAT(dialogs.asked, SizeIs(1));  // that it was loaded again
  dialogs.answers = {"OK"};
  Click("RemoveMusicFileButton");
  EXPECT_THAT(SavedSongs(2), ElementsAre("/music/0.mp3", "/music/2.mp3"));
}

}  // namespace
}  // namespace repvolta
