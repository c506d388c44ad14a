#include <filesystem>
#include <map>

#include "base/ProgramFiles.h"
#include "editing/PreviewCommands.h"

#include "support/EditorFixture.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

using Place = PreviewPlace::Kind;

/// The bytes of every file of the program directory.
std::map<std::string, std::string> AllFiles() {
  std::map<std::string, std::string> files;
  for (const auto& entry : fs::recursive_directory_iterator(".")) {
    files[entry.path().string()] =
        entry.is_regular_file() ? std::string(AsText(GetFile(entry.path().string()))) : "";
  }
  return files;
}

/// Two exercises; the weight of the first grows today.
class PreviewCommands : public EditorFixture {
 protected:
  PreviewCommands() {
    ExerciseRecord& squat = AddNewExercise("Squat");
    AddSet(squat, 20, 12);
    squat.SetIncrement1[0] = 2.5F;
    squat.SetFrequency1[0] = 6;
    squat.NextUpdate1[0] = kToday - 30;
    squat.MusicFile[0] = "/music/Gone.mp3";
    squat.NumberOfMusicFiles = 1;
    AddNewExercise("Row");
    state.CurrentExercise = 1;
    Show();
  }

  void PreviewAndShow(const PreviewPlace& place) {
    dialogs.previewOutcome = {.after = AfterPreview::kShowPlace, .place = place};
    PreviewUpdate(editor);
  }
};

TEST_F(PreviewCommands, ShowWhatAnUpdateWouldDo) {
  EXPECT_EQ(PreviewUpdate(editor).after, AfterPreview::kNothing);
  ASSERT_EQ(dialogs.previews.size(), 1);
  EXPECT_THAT(dialogs.previews[0].growth,
              ElementsAre(ElementsAre("Squat", "1", "Weight", "20", "22.5")));
}

TEST_F(PreviewCommands, ChangeNeitherAFileNorTheWorkout) {
  const auto files = AllFiles();
  const ExerciseSlots workout = state.Workout;
  PreviewUpdate(editor);
  EXPECT_EQ(AllFiles(), files);
  EXPECT_EQ(state.Workout, workout);
  EXPECT_THAT(processes.started, IsEmpty());
  EXPECT_THAT(speech.requests, IsEmpty());
}

TEST_F(PreviewCommands, WorkFromAnyDirectory) {
  fs::current_path("/");
  PreviewUpdate(editor);
  EXPECT_EQ(fs::current_path().string() + "/", folder.Path());
}

TEST_F(PreviewCommands, DoNothingWithoutAWorkout) {
  state.WorkoutFileName = " ";
  EXPECT_EQ(PreviewUpdate(editor).after, AfterPreview::kNothing);
  EXPECT_THAT(dialogs.asked, IsEmpty());
}

TEST_F(PreviewCommands, LeaveTheUpdateToTheButton) {
  dialogs.previewOutcome = {.after = AfterPreview::kUpdate, .place = {}};
  EXPECT_EQ(PreviewUpdate(editor).after, AfterPreview::kUpdate);
  EXPECT_TRUE(fs::is_empty("player"));
}

TEST_F(PreviewCommands, ShowTheSongThatIsToBeMended) {
  PreviewAndShow({.kind = Place::kSong, .exercise = 0, .row = 0});
  EXPECT_EQ(screen.tab, WindowTab::kExercise);
  EXPECT_EQ(screen.exerciseName, "Squat");
  EXPECT_EQ(screen.exercises.selected, 0);
  EXPECT_EQ(screen.music.selected, 0);
}

TEST_F(PreviewCommands, ShowTheSetThatIsToBeMended) {
  PreviewAndShow({.kind = Place::kSet, .exercise = 0, .row = 0});
  EXPECT_EQ(screen.tab, WindowTab::kExercise);
  EXPECT_EQ(screen.exerciseName, "Squat");
  EXPECT_EQ(screen.selectedSet, 0);
}

TEST_F(PreviewCommands, ShowTheExercise) {
  PreviewAndShow({.kind = Place::kExercise, .exercise = 0});
  EXPECT_EQ(screen.tab, WindowTab::kExercise);
  EXPECT_EQ(screen.exerciseName, "Squat");
}

TEST_F(PreviewCommands, ShowTheSettingsAndKeepTheExercise) {
  for (const Place place : {Place::kRandomMusicList, Place::kOutputPath}) {
    screen.tab = WindowTab::kWorkout;
    PreviewAndShow({.kind = place});
    EXPECT_EQ(screen.tab, WindowTab::kSettings);
    EXPECT_EQ(state.CurrentExercise, 1);
  }
}

TEST_F(PreviewCommands, OpenTheGuideForWhatIsMendedElsewhere) {
  PreviewAndShow({.kind = Place::kGuide});
  EXPECT_THAT(dialogs.guide, ElementsAre("preview.html#without-an-encoder"));
  EXPECT_EQ(screen.tab, WindowTab::kWorkout);
}

TEST_F(PreviewCommands, ShowTheWorkout) {
  screen.tab = WindowTab::kSettings;
  PreviewAndShow({.kind = Place::kWorkout});
  EXPECT_EQ(screen.tab, WindowTab::kWorkout);
}

TEST_F(PreviewCommands, KeepTheExerciseWhenThePlaceNamesNone) {
  PreviewAndShow({.kind = Place::kExercise, .exercise = 7});
  EXPECT_EQ(state.CurrentExercise, 1);
}

}  // namespace
}  // namespace repvolta
