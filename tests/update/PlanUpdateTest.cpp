#include <filesystem>
#include <gtest/gtest.h>
#include <map>

#include "app/WorkoutFiles.h"
#include "base/ProgramFiles.h"
#include "update/PlanUpdate.h"
#include "update/UpdateFixture.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

class PlannedUpdate : public UpdateFixture {
 protected:
  UpdatePlan Plan() { return PlanUpdate(state, kToday, random); }

  /// Every file with the time of its last change, and its content.
  static std::map<std::string, std::pair<fs::file_time_type, std::string>> FilesNow() {
    std::map<std::string, std::pair<fs::file_time_type, std::string>> files;
    for (const auto& entry : fs::recursive_directory_iterator(".")) {
      files[entry.path()] = {entry.last_write_time(),
                             entry.is_regular_file() ? GetTextFile(entry.path()) : ""};
    }
    return files;
  }

  ExerciseRecord& AddGrowing() {
    ExerciseRecord& exercise = AddExercise("Unheard of");
    AddSet(exercise, 50, 10);
    exercise.SetIncrement1[0] = 2.5F;
    exercise.SetFrequency1[0] = 7;
    exercise.NextUpdate1[0] = kToday - 8;
    return exercise;
  }

  void DrawFrom(const std::string& song, ExerciseRecord& exercise) {
    PutFile(kMusicList, song + "\n");
    state.RandomMusicFiles = 1;
    exercise.RandomMusic = kTrue;
    exercise.TargetExerciseTime = 5;
  }
};

TEST_F(PlannedUpdate, IsEmptyWithoutAWorkout) {
  AddGrowing();
  state.WorkoutFileName = " ";
  const UpdatePlan plan = Plan();
  EXPECT_TRUE(plan.exercises.empty());
  EXPECT_EQ(plan.folder, "");
}

TEST_F(PlannedUpdate, ChangesNothing) {
  PutFile("music/song.mp3", SongBytes(3));
  PutFile("player/Monday/RV001-Old.mp3", "old");
  DrawFrom(Full("music/song.mp3"), AddGrowing());
  SaveWorkout(state);
  const ExerciseSlots workout = state.Workout;
  const auto files = FilesNow();

  Plan();

  EXPECT_EQ(FilesNow(), files);
  EXPECT_EQ(state.Workout, workout);
  EXPECT_TRUE(speech.requests.empty());
  EXPECT_TRUE(processes.started.empty());
}

TEST_F(PlannedUpdate, SaysWhatGrows) {
  AddGrowing();
  const UpdatePlan plan = Plan();
  ASSERT_EQ(plan.exercises.size(), 1U);
  EXPECT_EQ(plan.exercises[0].growth, GrowthOn(state.Workout[0], kToday));
  EXPECT_EQ(plan.exercises[0].sentence, "Unheard of - 1 set, 52.5kg for 10reps");
}

TEST_F(PlannedUpdate, MarksDrawnSongsAsExamples) {
  PutFile("music/song.mp3", SongBytes(3));
  AddSong(AddGrowing(), Full("music/song.mp3"));
  DrawFrom(Full("music/song.mp3"), AddGrowing());
  const UpdatePlan plan = Plan();
  EXPECT_EQ(plan.exercises[0].files.at(1).choice, PlannedFile::Choice::kSet);
  EXPECT_EQ(plan.exercises[1].files.at(1).choice, PlannedFile::Choice::kExample);
}

TEST_F(PlannedUpdate, HasTheTimeOfItsFiles) {
  PutFile("music/song.mp3", SongBytes(3));
  PutFile("voice/exercise/Squat.WAV", ClipBytes(Bytes(128'000, '#')));
  AddSong(AddExercise("Squat"), Full("music/song.mp3"));
  const UpdatePlan plan = Plan();
  EXPECT_EQ(plan.exercises[0].files.at(0).seconds, 4);
  EXPECT_EQ(plan.seconds, 7);
}

TEST_F(PlannedUpdate, EstimatesAnInstructionThatIsYetToBeEncodedOrSpoken) {
  AddNamed("Squat");
  EXPECT_EQ(Plan().exercises[0].files.at(0).figures, PlannedFile::Figures::kEstimated);
  fs::remove(kEncoder);
  EXPECT_EQ(Plan().exercises[0].files.at(0).figures, PlannedFile::Figures::kExact);
  fs::remove("voice/exercise/Squat.WAV");
  EXPECT_EQ(Plan().exercises[0].files.at(0).figures, PlannedFile::Figures::kEstimated);
}

}  // namespace
}  // namespace repvolta
