#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RecordFormat.h"
#include "update/SeveralUpdates.h"
#include "update/Steps.h"

#include "fakes/RecordingRun.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint64_t kMebibyte = std::uint64_t{1} << 20;

/// A workout with one exercise and a song of 100 bytes is 3 MiB and 100 bytes of work.
constexpr std::uint64_t kWorkout = 3 * kMebibyte + 100;

class SeveralUpdatesTest : public testing::Test {
 protected:
  SeveralUpdatesTest() {
    PutFile("Song.mp3", Bytes(100));
    for (const char* name : {"A.RPV", "B.RPV"}) {
      ExerciseSlots workout;
      workout[0].ExerciseName = "Squat";
      workout[0].NumberOfMusicFiles = 1;
      workout[0].MusicFile[0] = folder.Path() + "Song.mp3";
      PutFile(std::string("workouts/") + name, EncodeWorkout(workout));
    }
    run.isWatched = true;
  }

  TemporaryFolder folder;
  RecordingRun run;
};

TEST_F(SeveralUpdatesTest, MakeOneProgressOfAll) {
  SeveralUpdates updates(run, {"A.RPV", "B.RPV"});
  updates.BeginNext();
  updates.ShowWork({.done = 0, .total = kWorkout, .atHand = "Song.mp3"});
  EXPECT_EQ(run.progress.back(), (WorkDone{0, 2 * kWorkout, "Song.mp3"}));
  updates.ShowWork({.done = kWorkout, .total = kWorkout});
  updates.BeginNext();
  updates.ShowWork({.done = 5, .total = kWorkout});
  EXPECT_EQ(run.progress.back(), (WorkDone{kWorkout + 5, 2 * kWorkout, ""}));
  updates.ShowWork({.done = kWorkout, .total = kWorkout});
  EXPECT_EQ(run.progress.back(), (WorkDone{2 * kWorkout, 2 * kWorkout, ""}));
}

TEST_F(SeveralUpdatesTest, CountWhatAnUpdateReallyDoes) {
  SeveralUpdates updates(run, {"A.RPV", "B.RPV"});
  updates.BeginNext();
  // The songs were drawn anew.
  updates.ShowWork({.done = 0, .total = 7});
  EXPECT_EQ(run.progress.back().total, 7 + kWorkout);
}

TEST_F(SeveralUpdatesTest, PassOverAWorkoutThatCannotBeRead) {
  std::filesystem::remove("workouts/A.RPV");
  std::filesystem::create_directory("workouts/C.RPV");
  SeveralUpdates updates(run, {"A.RPV", "C.RPV", "B.RPV"});
  updates.BeginNext();
  updates.BeginNext();
  updates.BeginNext();
  updates.ShowWork({.done = 1, .total = kWorkout});
  EXPECT_EQ(run.progress.back(), (WorkDone{1, kWorkout, ""}));
}

TEST_F(SeveralUpdatesTest, KnowTheWorkoutsWhoseTurnHasNotCome) {
  SeveralUpdates updates(run, {"A.RPV", "B.RPV"});
  updates.BeginNext();
  EXPECT_THAT(updates.NotBegun(), ElementsAre("B.RPV"));
  updates.BeginNext();
  EXPECT_THAT(updates.NotBegun(), IsEmpty());
}

TEST_F(SeveralUpdatesTest, BeginNoMoreWhenTheyAreStopped) {
  SeveralUpdates updates(run, {"A.RPV"});
  run.stopRequested = [] { return true; };
  EXPECT_THROW(updates.BeginNext(), UpdateStopped);
  EXPECT_THAT(updates.NotBegun(), ElementsAre("A.RPV"));
}

TEST_F(SeveralUpdatesTest, PassTheQuestionsOnToTheHost) {
  run.keepWaiting = [] { return true; };
  SeveralUpdates updates(run, {});
  EXPECT_TRUE(updates.IsWatched());
  EXPECT_TRUE(updates.KeepWaiting());
  EXPECT_FALSE(updates.StopRequested());
  updates.UpdateBegins();
  EXPECT_THAT(run.calls, ElementsAre("show"));
}

}  // namespace
}  // namespace repvolta
