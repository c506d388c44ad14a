#include "support/Drop.h"
#include "support/FormFixture.h"
#include "support/SongBytes.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// Files dragged from a file manager over the music list of the open exercise tab.
class MusicDrop : public FormFixture {
 protected:
  MusicDrop() {
    AddExercise("Squat");
    OpenTab(1);
    PutFile("music/b.mp3", SongBytes(200));
    PutFile("music/album/A.mp3", SongBytes(155));
  }

  Drag Over(const char* list) {
    return Drag(*List(list).viewport(), Qt::CopyAction | Qt::MoveAction);
  }

  QString Path(const std::string& name) { return QString::fromStdString(folder.Path() + name); }

  /// Enter, move and drop, and whatever follows.
  Qt::DropAction DropOn(const char* list, const QList<QString>& paths) {
    Drag drag(*List(list).viewport(), Qt::CopyAction | Qt::MoveAction);
    drag.Files(paths).Enter();
    drag.Move();
    const Qt::DropAction action = drag.Drop();
    QApplication::processEvents();
    return action;
  }
};

TEST_F(MusicDrop, AddsFilesAndFolders) {
  EXPECT_EQ(DropOn("MusicList", {Path("music/b.mp3"), Path("music/album")}), Qt::CopyAction);
  EXPECT_THAT(Rows("MusicList"),
              ElementsAre(folder.Path() + "music/album/A.mp3", folder.Path() + "music/b.mp3"));
  EXPECT_EQ(List("MusicList").SelectedRow(), 1);
  EXPECT_EQ(Text("TotalMusicTimeLabel"), "Total Music Time = 05:55");
  EXPECT_EQ(Text("TargetLabel"), "55 s longer than the target");
  EXPECT_EQ(Saved()[0].NumberOfMusicFiles, 2);
  EXPECT_THAT(dialogs.asked, IsEmpty());
}

TEST_F(MusicDrop, LeavesTheDroppedFilesWhereTheyAre) {
  DropOn("MusicList", {Path("music/b.mp3")});
  EXPECT_TRUE(std::filesystem::exists("music/b.mp3"));
}

TEST_F(MusicDrop, SaysWhatItDidNotAdd) {
  PutFile("cover.jpg", "");
  EXPECT_EQ(DropOn("MusicList", {Path("cover.jpg")}), Qt::CopyAction);
  EXPECT_THAT(dialogs.asked, ElementsAre(HasSubstr("cover.jpg")));
}

TEST_F(MusicDrop, SaysWhyASaveFailed) {
  BlockWorkouts();
  DropOn("MusicList", {Path("music/b.mp3")});
  EXPECT_THAT(dialogs.asked, ElementsAre(HasSubstr("The change is shown, but it is not saved.")));
}

TEST_F(MusicDrop, TakesNothingElseThanFiles) {
  EXPECT_EQ(Over("MusicList").Text("music/b.mp3").Enter(), Qt::IgnoreAction);
  EXPECT_EQ(Over("MusicList").Urls({QUrl("https://example.org/b.mp3")}).Enter(), Qt::IgnoreAction);
}

TEST_F(MusicDrop, IsForTheMusicListAlone) {
  EXPECT_EQ(DropOn("SetList1", {Path("music/b.mp3")}), Qt::IgnoreAction);
  OpenTab(0);
  EXPECT_EQ(DropOn("ExerciseList", {Path("music/b.mp3")}), Qt::IgnoreAction);
  EXPECT_EQ(state.Workout[0].NumberOfMusicFiles, 0);
}

TEST_F(MusicDrop, IsRefusedWhileAnUpdateRuns) {
  std::vector<Qt::DropAction> answers;
  progress.whenLine = [&] { answers.push_back(DropOn("MusicList", {Path("music/b.mp3")})); };
  Click("UpdateSelectedWorkoutButton");
  EXPECT_GT(answers.size(), 1U);
  EXPECT_THAT(answers, testing::Each(Qt::IgnoreAction));
  EXPECT_EQ(Saved()[0].NumberOfMusicFiles, 0);
}

TEST_F(MusicDrop, IsRefusedWhileACommandAsks) {
  Qt::DropAction answer = Qt::CopyAction;
  dialogs.whenAsked = [&] { answer = DropOn("MusicList", {Path("music/b.mp3")}); };
  dialogs.answers = {""};
  Click("SetExerciseTimeButton");
  EXPECT_EQ(answer, Qt::IgnoreAction);
}

TEST_F(MusicDrop, IsRefusedWithoutAnExercise) {
  state.NumberOfExercises = 0;
  EXPECT_EQ(DropOn("MusicList", {Path("music/b.mp3")}), Qt::IgnoreAction);
}

TEST_F(MusicDrop, IsRefusedWithoutAWorkout) {
  state.WorkoutFileName = "";
  form->EnableWorkoutControls();
  EXPECT_EQ(DropOn("MusicList", {Path("music/b.mp3")}), Qt::IgnoreAction);
}

TEST_F(MusicDrop, LeavesTheRowsOfTheListUndraggable) {
  EXPECT_EQ(List("MusicList").dragDropMode(), QAbstractItemView::NoDragDrop);
  EXPECT_FALSE(List("MusicList").dragEnabled());
}

TEST_F(MusicDrop, EndsWithTheProgram) {
  Drag drag(*List("MusicList").viewport());
  drag.Files({Path("music/b.mp3")}).Enter();
  EXPECT_EQ(drag.Drop(), Qt::CopyAction);
  form.reset();
  QApplication::processEvents();
  EXPECT_EQ(Saved()[0].NumberOfMusicFiles, 0);
}

}  // namespace
}  // namespace repvolta
