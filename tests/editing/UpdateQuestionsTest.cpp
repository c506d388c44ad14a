#include <filesystem>

#include "app/Options.h"
#include "base/ProgramFiles.h"
#include "editing/LoadedWorkout.h"
#include "editing/UpdateCommands.h"
#include "update/UpdateLock.h"

#include "support/EditorFixture.h"
#include "support/FakeDisk.h"
#include "support/SongBytes.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

/// Monday has an exercise that grows, and a song of 4 MB.
class UpdateQuestions : public EditorFixture {
 protected:
  UpdateQuestions() {
    PutFile("music/song.mp3", SongBytes(1000));
    ExerciseRecord& exercise = AddNewExercise("Squat");
    AddSet(exercise, 50, 10);
    exercise.SetIncrement1[0] = 5;
    exercise.SetFrequency1[0] = 1;
    exercise.NextUpdate1[0] = kToday - 9;
    exercise.NumberOfMusicFiles = 1;
    exercise.MusicFile[0] = folder.Path() + "music/song.mp3";
    Show();
    PutFile("player/Monday/RV001-old.mp3", "");
  }

  std::string Player() const { return folder.Path() + "player"; }

  /// Clicks and answers the question.
  void UpdateOne(const std::string& answer) {
    dialogs.answers = {answer};
    UpdateSelectedWorkoutButton_Click(editor);
  }
  void UpdateAll(const std::string& answer) {
    dialogs.answers = {answer};
    UpdateAllWorkoutsButton_Click(editor);
  }

  void ExpectNothingChanged(const Bytes& workout) {
    EXPECT_EQ(GetFile("workouts/Monday.RPV"), workout);
    EXPECT_EQ(state.Workout[0].SetValue1[0], 50);
    EXPECT_EQ(state.WorkoutFileName, "Monday.RPV");
    EXPECT_EQ(progress.shown, 0);
    EXPECT_THAT(run.calls, IsEmpty());
    EXPECT_FALSE(state.UpdatingAllWorkouts);
  }

  float SavedValue(const std::string& file = "Monday.RPV") { return Saved(file)[0].SetValue1[0]; }
};

TEST_F(UpdateQuestions, AreNoneWhereAllIsWell) {
  UpdateSelectedWorkoutButton_Click(editor);
  EXPECT_THAT(dialogs.asked, IsEmpty());
  EXPECT_EQ(SavedValue(), 55);
}

TEST_F(UpdateQuestions, AskWhetherToUpdateWithoutThePlayer) {
  fs::remove_all("player");
  UpdateOne("OK");
  EXPECT_THAT(dialogs.asked, ElementsAre("confirm|Update Workout|" + Player() +
                                         " is not there. Update all the same?"));
  EXPECT_EQ(SavedValue(), 55);
}

TEST_F(UpdateQuestions, ChangeNothingWhenThePersonCancels) {
  const Bytes workout = GetFile("workouts/Monday.RPV");
  fs::remove_all("player");
  UpdateOne("Cancel");
  UpdateAll("Cancel");
  ExpectNothingChanged(workout);
  EXPECT_FALSE(fs::exists("player"));
}

TEST_F(UpdateQuestions, AskOnceForAllWhenThePlayerIsMissing) {
  ListEmptyWorkouts({"Tuesday", "Wednesday"});
  fs::remove_all("player");
  UpdateAll("OK");
  EXPECT_THAT(dialogs.asked, ElementsAre("confirm|Update ALL Workouts|" + Player() +
                                             " is not there. Update all the same?",
                                         "message|Repvolta|Update COMPLETED on all Workouts"));
  EXPECT_EQ(SavedValue(), 55);
}

TEST_F(UpdateQuestions, AskWhetherToUpdateTheDiskBelowThePlayer) {
  Put(state.Options, kPlayerMountPoint, Player());
  UpdateOne("Cancel");
  EXPECT_THAT(dialogs.asked,
              ElementsAre("confirm|Update Workout|The player is not mounted at " + Player() +
                          ", so " + Player() + " lies on the disk below it. Update all the same?"));
  EXPECT_TRUE(fs::exists("player/Monday/RV001-old.mp3"));
}

TEST_F(UpdateQuestions, SeeWhatAnotherProgramHasRemembered) {
  PutFile(kOptionsFile, "player-mount-point = " + Player() + "\n");
  UpdateOne("Cancel");
  EXPECT_EQ(dialogs.asked.size(), 1U);
}

TEST_F(UpdateQuestions, DoNotDependOnOptionsThatCannotBeRead) {
  PutFile(std::string(kOptionsFile) + "/in the way", "");
  UpdateSelectedWorkoutButton_Click(editor);
  EXPECT_EQ(SavedValue(), 55);
}

TEST_F(UpdateQuestions, AskWhetherToUpdateWithTooLittleRoom) {
  const Bytes workout = GetFile("workouts/Monday.RPV");
  const FakeDisk disk(Free(2'500'000));
  UpdateOne("Cancel");
  EXPECT_THAT(dialogs.asked,
              ElementsAre("confirm|Update Workout|Monday.RPV needs 5 MB, there is room for 2 MB. "
                          "Update all the same?"));
  ExpectNothingChanged(workout);
  EXPECT_TRUE(fs::exists("player/Monday/RV001-old.mp3"));
  UpdateOne("OK");
  EXPECT_EQ(SavedValue(), 55);
}

TEST_F(UpdateQuestions, AskOnceForTheRoomOfAll) {
  const Bytes workout = GetFile("workouts/Monday.RPV");
  PutFile("workouts/Tuesday.RPV", workout);
  ListWorkouts(editor);
  const FakeDisk disk(Free(6'500'000));
  UpdateAll("Cancel");
  EXPECT_THAT(dialogs.asked,
              ElementsAre("confirm|Update ALL Workouts|The update of all workouts needs 9 MB, "
                          "there is room for 6 MB. Update all the same?"));
  ExpectNothingChanged(workout);
  dialogs.asked.clear();
  UpdateAll("OK");
  EXPECT_EQ(dialogs.asked.size(), 2U);
  EXPECT_EQ(SavedValue(), 55);
  EXPECT_EQ(SavedValue("Tuesday.RPV"), 55);
}

TEST_F(UpdateQuestions, LeaveOutWorkoutsThatCannotBeRead) {
  ListEmptyWorkouts({"Tuesday"});
  fs::remove("workouts/Tuesday.RPV");
  const FakeDisk disk(Free(2'500'000));
  UpdateAll("Cancel");
  EXPECT_EQ(dialogs.asked.size(), 1U);
}

TEST_F(UpdateQuestions, AreNotAskedWithoutAnOutputPath) {
  state.Settings.OutputPath = "";
  UpdateSelectedWorkoutButton_Click(editor);
  EXPECT_THAT(dialogs.asked, ElementsAre("message|Repvolta|Cannot perform update, no Output file "
                                         "path has been specified."));
}

TEST_F(UpdateQuestions, AreAskedWhileNoOtherUpdateCanBegin) {
  fs::remove_all("player");
  bool isLocked = false;
  dialogs.whenAsked = [&] {
    try {
      const UpdateLock other(state.ProgramDirectory);
    } catch (const UpdateRunning&) {
      isLocked = true;
    }
  };
  UpdateOne("Cancel");
  EXPECT_TRUE(isLocked);
}

}  // namespace
}  // namespace repvolta
