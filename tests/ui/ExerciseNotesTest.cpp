#include <QAccessible>

#include "support/FormFixture.h"

namespace repvolta {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

/// The tab of an exercise without sets, and of a second one that has random music.
class ExerciseNotes : public FormFixture {
 protected:
  ExerciseNotes() {
    AddExercise("Squat");
    AddExercise("Row").RandomMusic = kTrue;
    Show();
    OpenTab(1);
  }

  std::string ToolTip(const char* name) { return Get<QWidget>(name).toolTip().toStdString(); }

  std::string Heard(const char* name, QAccessible::Text what) {
    return QAccessible::queryAccessibleInterface(&Get<QWidget>(name))->text(what).toStdString();
  }
};

TEST_F(ExerciseNotes, TellWhetherTheExerciseHasRandomMusicWhateverTheBoxShows) {
  EXPECT_EQ(Text("RandomMusicStateLabel"), "random music: off");
  Click("NextExerciseButton");
  EXPECT_EQ(Text("RandomMusicStateLabel"), "random music: on");
  EXPECT_FALSE(Get<QAbstractButton>("RandomMusicCheckBox").isChecked());
}

TEST_F(ExerciseNotes, FollowTheRandomMusicBox) {
  Click("RandomMusicCheckBox");
  EXPECT_EQ(Text("RandomMusicStateLabel"), "random music: on");
  Click("RandomMusicCheckBox");
  EXPECT_EQ(Text("RandomMusicStateLabel"), "random music: off");
}

TEST_F(ExerciseNotes, FollowAWorkoutThatIsLoadedAgain) {
  ExerciseSlots changed = state.Workout;
  changed[0].RandomMusic = kTrue;
  PutFile("workouts/Monday.RPV", EncodeWorkout(changed));
  Load("Monday.RPV");
  EXPECT_EQ(Text("RandomMusicStateLabel"), "random music: on");
}

TEST_F(ExerciseNotes, AreHeardWithTheRandomMusicBox) {
  EXPECT_THAT(Heard("RandomMusicCheckBox", QAccessible::Description),
              EndsWith(" This exercise has random music: off."));
  Click("NextExerciseButton");
  EXPECT_THAT(Heard("RandomMusicCheckBox", QAccessible::Description),
              EndsWith(" This exercise has random music: on."));
  EXPECT_EQ(Heard("RandomMusicStateLabel", QAccessible::Name), "random music: on");
}

TEST_F(ExerciseNotes, SayInTheToolTipHowManySetsCanBeAdded) {
  EXPECT_THAT(ToolTip("AddNewSetButton"),
              StartsWith("Adds a new set to your Exercise. The highlighted"));
  EXPECT_THAT(ToolTip("AddNewSetButton"), EndsWith("\nAn exercise has at most three sets: 3 more "
                                                   "can be added."));
  dialogs.answers = {"1", "2"};
  Click("AddNewSetButton");
  EXPECT_THAT(ToolTip("AddNewSetButton"), EndsWith(": 2 more can be added."));
  EXPECT_THAT(Heard("AddNewSetButton", QAccessible::Description), HasSubstr("2 more"));
}

TEST_F(ExerciseNotes, SayInTheToolTipHowManyMusicFilesCanBeAdded) {
  PutFile("music/A.mp3", "");
  dialogs.answers = {folder.Path() + "music/A.mp3"};
  Click("AddMusicFileButton");
  EXPECT_THAT(ToolTip("AddMusicFileButton"),
              StartsWith("Add a music file to the end of the list. (Ins)\n"));
  EXPECT_THAT(ToolTip("AddMusicFileButton"),
              EndsWith("An exercise has at most ten music files: 9 more can be added."));
}

}  // namespace
}  // namespace repvolta
