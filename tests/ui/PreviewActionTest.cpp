#include <QAction>

#include "support/FormFixture.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Place = PreviewPlace::Kind;

/// Two exercises with music; the second is the current one.
class PreviewAction : public FormFixture {
 protected:
  PreviewAction() {
    for (const char* name : {"Squat", "Row"}) {
      ExerciseRecord& exercise = AddExercise(name);
      exercise.NumberOfSets = 2;
      exercise.NumberOfMusicFiles = 2;
      exercise.MusicFile[0] = "/music/a.mp3";
      exercise.MusicFile[1] = "/music/b.mp3";
    }
    state.CurrentExercise = 1;
    Show();
    form->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(form.get()));
  }

  void PreviewAndShow(const PreviewPlace& place) {
    dialogs.previewOutcome = {.after = AfterPreview::kShowPlace, .place = place};
    action.trigger();
  }

  std::string Focused() { return QApplication::focusWidget()->objectName().toStdString(); }

  QAction& action = Get<QAction>("PreviewAction");
};

TEST_F(PreviewAction, IsReachedByItsKeyFromEachTab) {
  for (int tab = 0; tab < 3; ++tab) {
    OpenTab(tab);
    QTest::keyClick(form.get(), Qt::Key_P, Qt::ControlModifier);
  }
  EXPECT_THAT(dialogs.asked, ElementsAre("preview", "preview", "preview"));
}

TEST_F(PreviewAction, NeedsAWorkout) {
  state.WorkoutFileName.clear();
  form->EnableWorkoutControls();
  EXPECT_FALSE(action.isEnabled());
  action.trigger();
  EXPECT_THAT(dialogs.asked, IsEmpty());
}

TEST_F(PreviewAction, UpdatesByTheButtonWhenThatIsWanted) {
  dialogs.previewOutcome = {.after = AfterPreview::kUpdate, .place = {}};
  action.trigger();
  EXPECT_EQ(progress.shown, 1);
  EXPECT_TRUE(std::filesystem::exists("player/Monday/Monday.M3U"));
}

TEST_F(PreviewAction, UpdatesNothingByItself) {
  action.trigger();
  EXPECT_EQ(progress.shown, 0);
  EXPECT_TRUE(std::filesystem::is_empty("player"));
}

TEST_F(PreviewAction, LeadsToTheSongAndItsList) {
  PreviewAndShow({.kind = Place::kSong, .exercise = 0, .row = 1});
  EXPECT_EQ(Get<QTabWidget>("SSTab1").currentIndex(), 1);
  EXPECT_EQ(Text("ExerciseNameLabel"), "Squat");
  EXPECT_EQ(List("MusicList").SelectedRow(), 1);
  EXPECT_EQ(List("ExerciseList").SelectedRow(), 0);
  EXPECT_EQ(Focused(), "MusicList");
}

TEST_F(PreviewAction, LeadsToTheSet) {
  PreviewAndShow({.kind = Place::kSet, .exercise = 0, .row = 1});
  EXPECT_EQ(Text("ExerciseNameLabel"), "Squat");
  EXPECT_EQ(List("SetList2").SelectedRow(), 1);
  EXPECT_EQ(Focused(), "SetList1");
}

TEST_F(PreviewAction, LeadsToTheControlThatMends) {
  const std::vector<std::pair<Place, std::string>> controls = {
      {Place::kTargetTime, "SetExerciseTimeButton"},
      {Place::kRandomMusicList, "CompileMusicList"},
      {Place::kOutputPath, "OutputPathButton"},
      {Place::kWorkout, "ExerciseList"}};
  for (const auto& [place, control] : controls) {
    PreviewAndShow({.kind = place});
    EXPECT_EQ(Focused(), control);
  }
}

TEST_F(PreviewAction, LeadsToTheExerciseTab) {
  PreviewAndShow({.kind = Place::kExercise, .exercise = 0});
  EXPECT_EQ(Get<QTabWidget>("SSTab1").currentIndex(), 1);
  EXPECT_EQ(Text("ExerciseNameLabel"), "Squat");
}

TEST_F(PreviewAction, ShowsTheControlsOfAnExerciseThatCameAfterTheTabWasSeenEmpty) {
  Load("Monday.RPV");
  state.NumberOfExercises = 0;
  OpenTab(1);
  ASSERT_FALSE(Get<QWidget>("MusicListFrame").isVisible());
  OpenTab(0);
  state.NumberOfExercises = 2;
  Show();
  PreviewAndShow({.kind = Place::kSong, .exercise = 0, .row = 1});
  EXPECT_TRUE(Get<QWidget>("MusicListFrame").isVisible());
}

TEST_F(PreviewAction, SaysWhyThereIsNoPreview) {
  std::filesystem::current_path("/");
  std::filesystem::rename(folder.Path(), folder.Path().substr(0, folder.Path().size() - 1) + "x");
  action.trigger();
  std::filesystem::rename(folder.Path().substr(0, folder.Path().size() - 1) + "x", folder.Path());
  ASSERT_EQ(dialogs.asked.size(), 1);
  EXPECT_TRUE(dialogs.asked[0].starts_with("message|Repvolta|")) << dialogs.asked[0];
}

}  // namespace
}  // namespace repvolta
