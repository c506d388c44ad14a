#include <QPushButton>
#include <QSplitter>
#include <QTimer>

#include "base/ProgramFiles.h"
#include "update/Steps.h"

#include "support/FormFixture.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

class MainWindow : public FormFixture {
 protected:
  bool IsEnabled(const char* control) { return Get<QWidget>(control).isEnabled(); }

  static constexpr const char* kWorkoutControls[] = {
      "DeleteSelectedWorkoutButton", "ExerciseList",
      "ExerciseSummaryList",         "AddExerciseButton",
      "EditExerciseNameButton",      "RemoveExerciseButton",
      "MoveUpExerciseListButton",    "UpdateSelectedWorkoutButton",
      "UpdateAllWorkoutsButton"};
};

TEST_F(MainWindow, HasItsCaptionAndTabs) {
  EXPECT_EQ(form->windowTitle(), "Repvolta - Exercise Management for your MP3 Player");
  auto& tabs = Get<QTabWidget>("SSTab1");
  std::vector<std::string> titles;
  for (int i = 0; i < tabs.count(); ++i) {
    titles.push_back(tabs.tabText(i).remove('&').toStdString());
  }
  EXPECT_THAT(titles, ElementsAre("Workout Setup/Exercise Selection", "Exercise Setup",
                                  "Program Settings"));
}

TEST_F(MainWindow, TheButtonsHaveTheirCaptionsAndToolTips) {
  struct Button {
    const char* name;
    const char* caption;
    const char* toolTip;
  };
  constexpr Button kButtons[] = {
      {"UpdateSelectedWorkoutButton", "Update Workout", "Update the currently loaded Workout."},
      {"UpdateAllWorkoutsButton", "Update ALL Workouts", nullptr},
      {"AutoLoadPLaylistCheckbox", "Automatically Load Playlist after Update",
       "Check this box if you want to automatically load your Workout(s) into your default music "
       "program when you Update them."},
      {"CompileMusicList", "Compile Random Music List",
       "Re-Compile your random music list. Do this if you've added new songs to your collection."},
      {"AddNewSetButton", "Add New Set", nullptr},
      {"RemoveSelectedSetButton", "Remove Selected Set", nullptr},
      {"MoveSetUpListButton", "Move Set Up List", nullptr},
      {"ManualDateResetButton", "Manually Reset Inc Date",
       "Manually reset the Increment date to todays date. The next increment will be the "
       "programmed number of days from todays date."},
      {"SetButton_0", "Weight/Reps", "Use this setting for weight workouts"},
      {"SetButton_1", "Level/Time",
       "Use this setting for exercise machine with a level/difficulty setting"},
      {"SetButton_2", "Distance/Speed",
       "Use this setting for running, swimming, and other aerobic workouts"},
      {"SetButton_3", "User Defined", "Define your own Set type, e.g. Dwarf Tosses/Weight"},
      {"UnitsSelection_0", "Metric (Kilograms/Kilometers)", "Select Metric Unit for this Set only"},
      {"UnitsSelection_1", "Imperial (Pounds/Miles)", "Select Imperial Units for this Set only."},
  };
  for (const Button& button : kButtons) {
    auto& control = Get<QAbstractButton>(button.name);
    EXPECT_EQ(control.text().remove('&').toStdString(), button.caption);
    if (button.toolTip != nullptr) {
      EXPECT_EQ(control.toolTip().toStdString(), button.toolTip);
    }
  }
  EXPECT_TRUE(Get<QWidget>("AddNewSetButton")
                  .toolTip()
                  .startsWith("Adds a new set to your Exercise. The highlighted"));
}

TEST_F(MainWindow, WithoutAWorkoutNothingCanBeEdited) {
  OpenTab(1);
  state.WorkoutFileName = " ";
  form->EnableWorkoutControls();
  for (const char* control : kWorkoutControls) EXPECT_FALSE(IsEnabled(control)) << control;
  auto& tabs = Get<QTabWidget>("SSTab1");
  EXPECT_EQ(tabs.currentIndex(), 0);
  EXPECT_FALSE(tabs.isTabEnabled(1));
  EXPECT_TRUE(tabs.isTabEnabled(2));
  EXPECT_TRUE(IsEnabled("WorkoutDropBox"));
  EXPECT_TRUE(IsEnabled("CreateNewWorkoutButton"));
}

TEST_F(MainWindow, TheTabThatTurnsByItselfIsNoChoice) {
  AddExercise("Squat");
  AddExercise("Row");
  OpenTab(1);
  List("ExerciseList").SelectRow(1);
  state.WorkoutFileName = "";
  form->EnableWorkoutControls();
  EXPECT_EQ(Get<QTabWidget>("SSTab1").currentIndex(), 0);
  EXPECT_EQ(state.CurrentExercise, 0);
}

TEST_F(MainWindow, WithAWorkoutEverythingCanBeEdited) {
  for (const char* control : kWorkoutControls) EXPECT_TRUE(IsEnabled(control)) << control;
  EXPECT_TRUE(Get<QTabWidget>("SSTab1").isTabEnabled(1));
}

TEST_F(MainWindow, CreatingTheFirstWorkoutEnablesItsControls) {
  state.WorkoutFileName = "";
  form->EnableWorkoutControls();
  dialogs.answers = {"Friday"};
  Click("CreateNewWorkoutButton");
  for (const char* control : kWorkoutControls) EXPECT_TRUE(IsEnabled(control)) << control;
}

TEST_F(MainWindow, ADeletedWorkoutDisablesItsControls) {
  PutFile("Monday.RPV", "beside");
  dialogs.answers = {"OK"};
  Click("DeleteSelectedWorkoutButton");
  for (const char* control : kWorkoutControls) EXPECT_FALSE(IsEnabled(control)) << control;
}

TEST_F(MainWindow, UpdatesTheLoadedWorkout) {
  Click("UpdateSelectedWorkoutButton");
  EXPECT_THAT(progress.lines, Contains("UPDATE COMPLETE."));
  EXPECT_TRUE(progress.visible);
  EXPECT_TRUE(fs::exists("player/Monday"));
  EXPECT_THAT(dialogs.asked, IsEmpty());
  EXPECT_TRUE(IsEnabled("UpdateSelectedWorkoutButton"));
}

TEST_F(MainWindow, EnterUpdatesTheLoadedWorkout) {
  EXPECT_TRUE(Get<QPushButton>("UpdateSelectedWorkoutButton").isDefault());
  Get<QTabWidget>("SSTab1").setFocus();
  QTest::keyClick(&Get<QTabWidget>("SSTab1"), Qt::Key_Return);
  EXPECT_EQ(progress.shown, 1);
}

TEST_F(MainWindow, EnterInAListUpdatesNothing) {
  for (const char* list : {"ExerciseList", "ExerciseSummaryList", "MusicList", "SetList1"}) {
    QTest::keyClick(&List(list), Qt::Key_Return);
    EXPECT_EQ(progress.shown, 0) << list;
  }
}

TEST_F(MainWindow, RefusesAnUpdateWithoutAnOutputPath) {
  for (const std::string& path : {std::string("   "), std::string(256, 'x')}) {
    state.Settings.OutputPath = path;
    for (const char* button : {"UpdateSelectedWorkoutButton", "UpdateAllWorkoutsButton"}) {
      dialogs.asked.clear();
      Click(button);
      EXPECT_THAT(dialogs.asked, ElementsAre("message|Repvolta|Cannot perform update, no Output "
                                             "file path has been specified."));
    }
  }
  EXPECT_EQ(progress.shown, 0);
}

TEST_F(MainWindow, UpdatesAllWorkoutsAndEndsWithoutOne) {
  ListWorkouts({"Tuesday", "Wednesday"});
  form->SelectWorkout(1);
  Click("UpdateAllWorkoutsButton");
  EXPECT_THAT(dialogs.asked, ElementsAre("message|Repvolta|Update COMPLETED on all Workouts"));
  EXPECT_EQ(progress.shown, 3);
  EXPECT_FALSE(progress.visible);
  EXPECT_EQ(state.WorkoutFileName, "");
  EXPECT_EQ(Get<QComboBox>("WorkoutDropBox").currentIndex(), 1);
  EXPECT_FALSE(IsEnabled("UpdateAllWorkoutsButton"));
  EXPECT_TRUE(state.UpdatingAllWorkouts);
}

TEST_F(MainWindow, AfterUpdateAllTheSelectedWorkoutCanBeChosenAgain) {
  Click("UpdateAllWorkoutsButton");
  auto& box = Get<QComboBox>("WorkoutDropBox");
  Q_EMIT box.activated(box.currentIndex());
  EXPECT_EQ(state.WorkoutFileName, "Monday.RPV");
  EXPECT_TRUE(IsEnabled("AddExerciseButton"));
}

TEST_F(MainWindow, OpensThePlayListWhenTheSettingAsksForIt) {
  state.Settings.AutoLoadPlaylist = kTrue;
  Click("UpdateSelectedWorkoutButton");
  EXPECT_THAT(dialogs.opened, ElementsAre(folder.Path() + "player/Monday/Monday.M3U"));
}

TEST_F(MainWindow, WhileAnUpdateRunsNothingElseCanBeDone) {
  AddExercise("Squat");
  bool looked = false;
  progress.whenLine = [&] {
    looked = true;
    for (const char* button : {"UpdateSelectedWorkoutButton", "AddExerciseButton"}) {
      Get<QAbstractButton>(button).click();
    }
  };
  Click("UpdateSelectedWorkoutButton");
  EXPECT_TRUE(looked);
  EXPECT_EQ(progress.shown, 1);
  EXPECT_THAT(dialogs.asked, IsEmpty());
}

TEST_F(MainWindow, WhileAnUpdateRunsOnlyExitIsEnabled) {
  int lines = 0;
  progress.whenLine = [&] {
    if (++lines < 2) return;
    EXPECT_FALSE(IsEnabled("SSTab1"));
    EXPECT_FALSE(IsEnabled("UpdateSelectedWorkoutButton"));
    EXPECT_FALSE(IsEnabled("AboutButton"));
    EXPECT_TRUE(IsEnabled("ExitButton"));
  };
  Click("UpdateSelectedWorkoutButton");
  EXPECT_GE(lines, 2);
  EXPECT_TRUE(IsEnabled("SSTab1"));
  EXPECT_TRUE(IsEnabled("AboutButton"));
}

TEST_F(MainWindow, TheFocusComesBackAfterAnUpdate) {
  form->activateWindow();
  Get<QWidget>("UpdateSelectedWorkoutButton").setFocus();
  Click("UpdateSelectedWorkoutButton");
  EXPECT_EQ(form->focusWidget(), &Get<QWidget>("UpdateSelectedWorkoutButton"));
}

TEST_F(MainWindow, EventsThatRunDuringTheStartLeaveTheWindowUsable) {
  form->RunEvents();
  EXPECT_TRUE(form->KeepWaiting());
  EXPECT_TRUE(IsEnabled("SSTab1"));
}

TEST_F(MainWindow, ExitStoresTheSelectedWorkoutAndEnds) {
  ListWorkouts({"Tuesday"});
  form->SelectWorkout(1);
  int ended = 0;
  QObject::connect(form.get(), &RepvoltaForm::Ended, form.get(), [&] { ++ended; });
  Click("ExitButton");
  EXPECT_EQ(SavedSettings().LastWorkoutIndex, 1);
  EXPECT_EQ(ended, 1);
  EXPECT_FALSE(form->isVisible());
}

TEST_F(MainWindow, ExitWithoutASelectedWorkoutStoresMinusOne) {
  form->SelectWorkout(-1);
  Click("ExitButton");
  EXPECT_EQ(SavedSettings().LastWorkoutIndex, -1);
}

TEST_F(MainWindow, ClosingTheWindowIsExit) {
  int ended = 0;
  QObject::connect(form.get(), &RepvoltaForm::Ended, form.get(), [&] { ++ended; });
  form->close();
  EXPECT_TRUE(fs::exists(kSettingsFile));
  EXPECT_EQ(ended, 1);
}

TEST_F(MainWindow, ExitEndsAlsoWhenTheSettingsCannotBeSaved) {
  BlockSettings();
  Click("ExitButton");
  ASSERT_THAT(dialogs.asked, SizeIs(1));
  EXPECT_THAT(dialogs.asked[0], HasSubstr("settings.dat could not be"));
  EXPECT_FALSE(form->isVisible());
}

TEST_F(MainWindow, ExitDuringAnUpdateStopsItAtTheNextStep) {
  AddExercise("Squat");
  const ExerciseSlots before = Saved();
  int ended = 0;
  QObject::connect(form.get(), &RepvoltaForm::Ended, form.get(), [&] { ++ended; });
  progress.whenLine = [&] {
    if (progress.lines.size() == 1) {
      form->close();
      EXPECT_EQ(ended, 0);
    }
  };
  Click("UpdateSelectedWorkoutButton");
  EXPECT_EQ(ended, 1);
  EXPECT_THAT(progress.lines, Not(Contains("UPDATE COMPLETE.")));
  EXPECT_FALSE(progress.visible);
  EXPECT_EQ(Saved(), before);
  EXPECT_THROW(form->RunEvents(), UpdateStopped);
  EXPECT_FALSE(form->KeepWaiting());
}

TEST_F(MainWindow, ExitCountsOnce) {
  BlockSettings();
  progress.whenLine = [&] {
    form->close();
    Get<QAbstractButton>("ExitButton").click();
  };
  Click("UpdateSelectedWorkoutButton");
  EXPECT_THAT(dialogs.asked, SizeIs(1));
}

TEST_F(MainWindow, ExitDuringTheListingOfMusicLeavesTheOldList) {
  PutFile("musiclist.txt", "old\n");
  QTimer::singleShot(0, form.get(), [this] { form->close(); });
  Get<QAbstractButton>("CompileMusicList").click();
  EXPECT_EQ(GetTextFile("musiclist.txt"), "old\n");
  EXPECT_THAT(dialogs.asked, IsEmpty());
  EXPECT_FALSE(pleaseWait.visible);
}

TEST_F(MainWindow, EscapeDoesNotCloseIt) {
  QTest::keyClick(form.get(), Qt::Key_Escape);
  EXPECT_TRUE(form->isVisible());
}

TEST_F(MainWindow, ShowsTheAboutBox) {
  Click("AboutButton");
  EXPECT_THAT(dialogs.asked, ElementsAre("about"));
}

TEST_F(MainWindow, ItsSizeAndColumnsComeBackAtTheNextStart) {
  form->resize(form->width() + 40, form->height() + 30);
  const QSize size = form->size();
  auto& columns = Get<QSplitter>("ExerciseSplitter");
  columns.setSizes({columns.width() - 150, 150});
  const QList<int> widths = columns.sizes();
  Click("ExitButton");

  OpenForm();

  EXPECT_EQ(form->size(), size);
  EXPECT_EQ(Get<QSplitter>("ExerciseSplitter").sizes(), widths);
}

TEST_F(MainWindow, TheColumnsOfTheSetsComeBackAlsoAfterAStartWithoutExercises) {
  AddExercise("Squat");
  OpenTab(1);
  auto& values = Get<QSplitter>("SetDetailsSplitter");
  values.setSizes({values.width() - 90, 90});
  auto& halves = Get<QSplitter>("SetSplitter");
  halves.setSizes({halves.width() / 2, halves.width() / 2});
  const QList<int> widths = values.sizes();
  const QList<int> halfWidths = halves.sizes();
  Click("ExitButton");

  state.NumberOfExercises = 0;
  OpenForm();
  OpenTab(1);
  Click("ExitButton");

  OpenForm();
  AddExercise("Squat");
  OpenTab(1);
  EXPECT_EQ(Get<QSplitter>("SetDetailsSplitter").sizes(), widths);
  EXPECT_EQ(Get<QSplitter>("SetSplitter").sizes(), halfWidths);
}

}  // namespace
}  // namespace repvolta
