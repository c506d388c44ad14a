#include "support/FormFixture.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

class ExerciseScreen : public FormFixture {
 protected:
  ExerciseRecord& Exercise() { return state.Workout[state.CurrentExercise]; }
};

TEST_F(ExerciseScreen, ShowsTheNameTheTimesAndTheMusic) {
  ExerciseRecord& exercise = AddExercise("Squat");
  exercise.TargetExerciseTime = 320;
  exercise.TotalMusicTime = 375;
  exercise.MusicFile[0] = "/music/b.mp3";
  exercise.MusicFile[1] = "/music/a.mp3";
  exercise.NumberOfMusicFiles = 2;
  form->UpdateExerciseScreen();
  EXPECT_EQ(Text("ExerciseNameLabel"), "Squat");
  EXPECT_EQ(Text("EstimatedExerciseTimeLabel"), "Target Exercise Time = 05:20");
  EXPECT_EQ(Text("TotalMusicTimeLabel"), "Total Music Time = 06:15");
  EXPECT_THAT(Rows("MusicList"), ElementsAre("/music/b.mp3", "/music/a.mp3"));
}

TEST_F(ExerciseScreen, ShowsOneRowForEachSet) {
  ExerciseRecord& exercise = AddExercise("Squat");
  exercise.NumberOfSets = 2;
  exercise.SetValue1[0] = 62.5;
  exercise.SetValue2[0] = 10;
  exercise.SetIncrement1[0] = 0.5;
  exercise.SetIncrement2[0] = -1;
  exercise.SetFrequency1[0] = 7;
  exercise.SetFrequency2[0] = 1;
  exercise.NextUpdate2[0] = kToday - 10;
  form->UpdateExerciseScreen();
  EXPECT_THAT(Rows("SetList1"), ElementsAre("62.5", "0"));
  EXPECT_THAT(Rows("SetList2"), ElementsAre("10", "0"));
  EXPECT_THAT(Rows("SetListInc1"), ElementsAre("0.5", "0"));
  EXPECT_THAT(Rows("SetListInc2"), ElementsAre("-1", "0"));
  EXPECT_THAT(Rows("FreqList1"), ElementsAre("7", "0"));
  EXPECT_THAT(Rows("FreqList2"), ElementsAre("1", "0"));
  EXPECT_THAT(Rows("NextUpdateList"), ElementsAre(" 6, Due", "N/A, N/A"));
}

TEST_F(ExerciseScreen, SaysWhatToDoAboutNoSets) {
  AddExercise("Squat");
  OpenTab(1);
  auto& label = Get<QLabel>("NoSetsLabel");
  EXPECT_EQ(label.text(), "No sets yet: add one.");
  EXPECT_TRUE(label.isVisible());
  EXPECT_GE(label.width(), label.sizeHint().width());
  EXPECT_NE(List("SetList1").accessibleDescription(), "");
  Exercise().NumberOfSets = 1;
  form->UpdateExerciseScreen();
  EXPECT_FALSE(label.isVisible());
}

TEST_F(ExerciseScreen, NamesTheFieldsOfTheKindOfSets) {
  AddExercise("Squat").SetType = kUserDefined;
  Exercise().UserField1Name = "R&B <b>";
  form->UpdateExerciseScreen();
  EXPECT_EQ(Text("SetListLabel1"), "R&B <b>");
  EXPECT_EQ(Text("SetListIncLabel1"), "R&B <b>");
  EXPECT_EQ(Text("SetListLabel2"), "User2");
  EXPECT_EQ(Text("SetListIncLabel2"), "User2");
  EXPECT_EQ(Text("FreqListLabel1"), "R&B <b>");
  EXPECT_EQ(Text("FreqListLabel2"), "User2");
  EXPECT_EQ(Text("NextUpdateListLabel"), "R&B <b>, User2");
  EXPECT_EQ(Get<QLabel>("SetListLabel1").textFormat(), Qt::PlainText);
  EXPECT_TRUE(Get<QAbstractButton>("SetButton_3").isChecked());
}

TEST_F(ExerciseScreen, ShowsTheUnits) {
  AddExercise("Squat").Units = kTrue;
  form->UpdateExerciseScreen();
  EXPECT_TRUE(Get<QAbstractButton>("UnitsSelection_1").isChecked());
  Exercise().Units = kFalse;
  form->UpdateExerciseScreen();
  EXPECT_TRUE(Get<QAbstractButton>("UnitsSelection_0").isChecked());
  EXPECT_FALSE(Get<QAbstractButton>("UnitsSelection_1").isChecked());
}

TEST_F(ExerciseScreen, AKindThatIsNotKnownChecksNoButton) {
  AddExercise("Squat").SetType = 77;
  form->UpdateExerciseScreen();
  for (const char* button : {"SetButton_0", "SetButton_1", "SetButton_2", "SetButton_3"}) {
    EXPECT_FALSE(Get<QAbstractButton>(button).isChecked()) << button;
  }
}

TEST_F(ExerciseScreen, LeavesTheRandomMusicCheckBoxAlone) {
  AddExercise("Squat").RandomMusic = kTrue;
  form->UpdateExerciseScreen();
  EXPECT_FALSE(Get<QAbstractButton>("RandomMusicCheckBox").isChecked());
}

TEST_F(ExerciseScreen, KeepsTheSelectedSetAndMusicFile) {
  AddExercise("Squat").NumberOfSets = 3;
  Exercise().NumberOfMusicFiles = 2;
  form->UpdateExerciseScreen();
  form->SelectSet(2);
  form->SelectMusic(1);
  form->UpdateExerciseScreen();
  EXPECT_EQ(List("SetList1").SelectedRow(), 2);
  EXPECT_EQ(List("NextUpdateList").SelectedRow(), 2);
  EXPECT_EQ(List("MusicList").SelectedRow(), 1);
}

TEST_F(ExerciseScreen, StaysAsItWasWithoutExercises) {
  AddExercise("Squat").NumberOfSets = 1;
  form->UpdateExerciseScreen();
  state.NumberOfExercises = 0;
  Exercise().ExerciseName = "other";
  form->UpdateExerciseScreen();
  EXPECT_EQ(Text("ExerciseNameLabel"), "Squat");
  EXPECT_THAT(Rows("SetList1"), SizeIs(1));
}

TEST_F(ExerciseScreen, FiveShowsTheSlotBeyondTheLastExercise) {
  AddExercise("Squat");
  state.Workout[5].ExerciseName = "slot five";
  state.CurrentExercise = 5;
  form->UpdateExerciseScreen();
  EXPECT_THAT(dialogs.asked, IsEmpty());
  EXPECT_EQ(Text("ExerciseNameLabel"), "slot five");
}

TEST_F(ExerciseScreen, SixIsToldAndShowsNothing) {
  AddExercise("Squat");
  state.CurrentExercise = 6;
  form->UpdateExerciseScreen();
  EXPECT_THAT(dialogs.asked,
              ElementsAre("message|Repvolta|Cannot update exercise screen. Current exercise number "
                          "exceeds MaxExercises"));
  EXPECT_EQ(Text("ExerciseNameLabel"), "Squat");
}

TEST_F(ExerciseScreen, MoreSetsThanSlotsThrowAndShowNoSetOfAnotherExercise) {
  AddExercise("Squat").NumberOfSets = 2;
  form->UpdateExerciseScreen();
  Exercise().NumberOfSets = 18;
  EXPECT_THROW(form->UpdateExerciseScreen(), std::out_of_range);
  EXPECT_THAT(Rows("SetList1"), IsEmpty());
  EXPECT_FALSE(state.ScreenUpdating);
}

TEST_F(ExerciseScreen, MoreMusicThanSlotsShowsNoRowOfAnotherExercise) {
  AddExercise("Squat").NumberOfSets = 2;
  Exercise().NumberOfMusicFiles = 2;
  form->UpdateExerciseScreen();
  Exercise().NumberOfMusicFiles = 13;
  EXPECT_THROW(form->UpdateExerciseScreen(), std::out_of_range);
  EXPECT_THAT(Rows("MusicList"), IsEmpty());
  EXPECT_THAT(Rows("SetList1"), IsEmpty());
}

TEST_F(ExerciseScreen, AnOddDateKeepsNothingElseFromBeingShown) {
  AddExercise("Squat").NumberOfSets = 2;
  Exercise().SetFrequency1[0] = Exercise().SetFrequency2[0] = Exercise().SetFrequency2[1] = 1;
  Exercise().NextUpdate1[0] = 1e300;
  Exercise().NextUpdate2[1] = 0;
  form->UpdateExerciseScreen();
  EXPECT_THAT(Rows("NextUpdateList"), ElementsAre("Never,  0", "N/A, Due"));
}

TEST_F(ExerciseScreen, TheFramesAreHiddenWithoutExercises) {
  const std::vector<const char*> frames = {"SetButtonsFrame", "MusicButtonsFrame",
                                           "MusicListFrame",  "ExerciseSettingFrame",
                                           "SetDetailsFrame", "AutoIncFrame"};
  OpenTab(1);
  for (const char* frame : frames) EXPECT_FALSE(Get<QWidget>(frame).isVisible()) << frame;
  EXPECT_EQ(Text("ExerciseNameLabel"), "No Exercise Selected");
  OpenTab(0);
  AddExercise("Squat");
  OpenTab(1);
  for (const char* frame : frames) EXPECT_TRUE(Get<QWidget>(frame).isVisible()) << frame;
  EXPECT_EQ(Text("ExerciseNameLabel"), "Squat");
}

TEST_F(ExerciseScreen, TheTabShowsTheSelectedExercise) {
  AddExercise("Squat");
  AddExercise("Row");
  ClickRow("ExerciseList", 1);
  OpenTab(1);
  EXPECT_EQ(state.CurrentExercise, 1);
  EXPECT_EQ(Text("ExerciseNameLabel"), "Row");
  OpenTab(0);
  EXPECT_EQ(List("ExerciseList").SelectedRow(), 1);
}

TEST_F(ExerciseScreen, TheTabShowsTheFirstExerciseWhenNoneIsSelected) {
  AddExercise("Squat");
  AddExercise("Row");
  state.CurrentExercise = 1;
  List("ExerciseList").SelectRow(-1);
  List("ExerciseList").setFocus();
  OpenTab(1);
  EXPECT_EQ(Text("ExerciseNameLabel"), "Squat");
}

TEST_F(ExerciseScreen, TheTabChangeShowsTheWorkoutAnew) {
  AddExercise("Squat").NumberOfSets = 2;
  OpenTab(1);
  OpenTab(0);
  EXPECT_EQ(Rows("ExerciseSummaryList")[0].substr(0, 7), "02 sets");
}

TEST_F(ExerciseScreen, ATabChangeWhileTheScreenIsUpdatingDoesNothing) {
  AddExercise("Squat");
  AddExercise("Row");
  ClickRow("ExerciseList", 1);
  state.ScreenUpdating = true;
  OpenTab(1);
  EXPECT_EQ(state.CurrentExercise, 0);
}

/// The tab of an exercise with two sets and two music files.
class ExerciseControls : public ExerciseScreen {
 protected:
  ExerciseControls() {
    AddExercise("Squat").NumberOfSets = 2;
    Exercise().MusicFile[0] = "a.mp3";
    Exercise().MusicFile[1] = "b.mp3";
    Exercise().NumberOfMusicFiles = 2;
    Show();
    OpenTab(1);
  }
};

TEST_F(ExerciseControls, TheKindOfSetsIsSavedAndShown) {
  for (int i : {3, 2, 1, 0}) {
    Click(("SetButton_" + std::to_string(i)).c_str());
    EXPECT_EQ(Saved()[0].SetType, i);
  }
  Click("SetButton_2");
  EXPECT_EQ(Text("SetListLabel1"), "Distance");
  EXPECT_EQ(Text("SetListIncLabel2"), "Speed");
}

TEST_F(ExerciseControls, TheUnitsAreSaved) {
  Click("UnitsSelection_1");
  EXPECT_EQ(Saved()[0].Units, kTrue);
  Click("UnitsSelection_0");
  EXPECT_EQ(Saved()[0].Units, kFalse);
}

TEST_F(ExerciseControls, AChoiceByAnAssistiveToolCountsToo) {
  Get<QAbstractButton>("SetButton_1").setChecked(true);
  Get<QAbstractButton>("UnitsSelection_1").setChecked(true);
  Get<QAbstractButton>("RandomMusicCheckBox").setChecked(true);
  EXPECT_EQ(Saved()[0].SetType, kLevelAndTime);
  EXPECT_EQ(Saved()[0].Units, kTrue);
  EXPECT_EQ(Saved()[0].RandomMusic, kTrue);
}

TEST_F(ExerciseControls, AnotherKindByAnAssistiveToolIsShown) {
  Get<QAbstractButton>("SetButton_2").setChecked(true);
  EXPECT_EQ(Text("SetListLabel1"), "Distance");
}

TEST_F(ExerciseControls, ChoicesCountForNothingWhileTheScreenIsUpdating) {
  state.ScreenUpdating = true;
  Click("SetButton_2");
  Click("UnitsSelection_1");
  Click("RandomMusicCheckBox");
  EXPECT_EQ(Exercise().SetType, kWeightAndReps);
  EXPECT_EQ(Exercise().Units, kFalse);
  EXPECT_EQ(Exercise().RandomMusic, kFalse);
}

TEST_F(ExerciseControls, ShowingAnotherExerciseChangesNoRecord) {
  AddExercise("Row").SetType = kUserDefined;
  state.Workout[1].Units = kTrue;
  const ExerciseSlots before = state.Workout;
  OpenTab(0);
  ClickRow("ExerciseList", 1);
  OpenTab(1);
  EXPECT_TRUE(Get<QAbstractButton>("SetButton_3").isChecked());
  EXPECT_TRUE(Get<QAbstractButton>("UnitsSelection_1").isChecked());
  EXPECT_EQ(state.Workout, before);
}

TEST_F(ExerciseControls, RandomMusicIsSavedWithoutARedraw) {
  Get<QLabel>("ExerciseNameLabel").setText("as it was");
  Click("RandomMusicCheckBox");
  EXPECT_EQ(Saved()[0].RandomMusic, kTrue);
  Click("RandomMusicCheckBox");
  EXPECT_EQ(Saved()[0].RandomMusic, kFalse);
  EXPECT_EQ(Text("ExerciseNameLabel"), "as it was");
}

TEST_F(ExerciseControls, TheFocusSelectsNoMusicFile) {
  List("MusicList").setFocus();
  Click("MoveMusicFileUpListButton");
  Click("RemoveMusicFileButton");
  EXPECT_THAT(dialogs.asked, IsEmpty());
}

TEST_F(ExerciseControls, TheFileThatTookTheRemovedOnesPlaceIsSelected) {
  ClickRow("MusicList", 1);
  dialogs.answers = {"OK"};
  Click("RemoveMusicFileButton");
  EXPECT_EQ(List("MusicList").SelectedRow(), 0);
}

TEST_F(ExerciseControls, TheLineBelowTheMusicComparesItWithTheTarget) {
  Exercise().TotalMusicTime = 355;
  form->UpdateExerciseScreen();
  EXPECT_EQ(Text("TargetLabel"), "55 s longer than the target");
  EXPECT_EQ(Get<QLabel>("TargetLabel").textFormat(), Qt::PlainText);
  dialogs.answers = {"10"};
  Click("SetExerciseTimeButton");
  EXPECT_EQ(Text("TargetLabel"), "4:05 short of the target");
}

TEST_F(ExerciseControls, TheLineBelowTheMusicFollowsTheRandomMusicBox) {
  Click("RandomMusicCheckBox");
  EXPECT_EQ(Text("TargetLabel"), "");
  Click("RandomMusicCheckBox");
  EXPECT_EQ(Text("TargetLabel"), "5:00 short of the target");
}

TEST_F(ExerciseControls, TheLineBelowTheMusicKeepsItsPlaceWhenItIsEmpty) {
  const QRect place = List("MusicList").geometry();
  Click("RandomMusicCheckBox");
  QApplication::processEvents();
  EXPECT_EQ(List("MusicList").geometry(), place);
}

TEST_F(ExerciseControls, ACommandThatFailsSaysWhatDidNotHappen) {
  dialogs.answers = {"1e39", "1e39", "/" + std::string(256, 'x')};
  Click("AddNewSetButton");
  EXPECT_EQ(dialogs.asked.back(),
            "message|Repvolta|The set could not be added.\rThe number is too large");
  DoubleClickRow("SetList1", 0);
  EXPECT_EQ(dialogs.asked.back(), "message|Repvolta|Nothing was changed.\rThe number is too large");
  Click("AddMusicFileButton");
  EXPECT_THAT(dialogs.asked.back(), StartsWith("message|Repvolta|The music file could not be "
                                               "added.\rThe path cannot be kept"));
}

}  // namespace
}  // namespace repvolta
