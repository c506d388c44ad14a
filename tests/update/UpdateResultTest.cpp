#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "update/SeveralUpdates.h"
#include "update/Steps.h"
#include "update/UpdateFixture.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::SizeIs;

/// An update of two exercises with songs of 3 and 4, and of 5 seconds; each instruction takes one.
class UpdateResultTest : public UpdateFixture {
 protected:
  UpdateResultTest() {
    ExerciseRecord& squat = AddNamed("Squat");
    AddMusic(squat, "A.mp3", 3);
    AddMusic(squat, "B.mp3", 4);
    AddMusic(AddNamed("Row"), "C.mp3", 5);
    run.isWatched = true;
  }

  void AddMusic(ExerciseRecord& exercise, const std::string& name, int seconds) {
    PutFile("music/" + name, SongBytes(seconds));
    AddSong(exercise, Full("music/" + name));
  }

  UpdateResult ResultOfUpdate() {
    run.results.clear();
    Update();
    EXPECT_THAT(run.results, SizeIs(1));
    return run.results.at(0);
  }
};

TEST_F(UpdateResultTest, TellsTheFilesOnThePlayerAndTheirPlayTime) {
  EXPECT_EQ(ResultOfUpdate(), (UpdateResult{.workout = "Monday",
                                            .folder = Full("player/Monday/"),
                                            .end = UpdateResult::End::kComplete,
                                            .files = 5,
                                            .planned = 5,
                                            .seconds = 14}));
}

TEST_F(UpdateResultTest, LeavesOutSongsThatAreGone) {
  fs::remove("music/B.mp3");
  const UpdateResult result = ResultOfUpdate();
  EXPECT_EQ(result.files, 4U);
  EXPECT_EQ(result.planned, 5U);
  EXPECT_EQ(result.seconds, 10);
}

TEST_F(UpdateResultTest, CountsTheFilesWhosePlayTimeIsNotKnown) {
  PutFile("music/C.mp3", "no music");
  const UpdateResult result = ResultOfUpdate();
  EXPECT_EQ(result.seconds, 9);
  EXPECT_EQ(result.unknownSeconds, 1U);
  EXPECT_EQ(result.files, 5U);
}

TEST_F(UpdateResultTest, KnowsNoPlayTimeOfInstructionsWithoutAnEncoder) {
  fs::remove("lame.exe");
  const UpdateResult result = ResultOfUpdate();
  EXPECT_EQ(result.seconds, 12);
  EXPECT_EQ(result.unknownSeconds, 2U);
}

TEST_F(UpdateResultTest, IsToldWhenTheLastLineHasBeenLogged) {
  Update();
  EXPECT_EQ(run.logAtEnd, run.log);
  EXPECT_EQ(run.logAtEnd.back(), "UPDATE COMPLETE.");
}

TEST_F(UpdateResultTest, OfAStoppedUpdateIsWhatIsThere) {
  run.stopRequested = [this] {
    return !run.progress.empty() && run.progress.back().atHand == "B.mp3";
  };
  EXPECT_THROW(Update(), UpdateStopped);
  ASSERT_THAT(run.results, SizeIs(1));
  EXPECT_EQ(run.results[0], (UpdateResult{.workout = "Monday",
                                          .folder = Full("player/Monday/"),
                                          .end = UpdateResult::End::kStopped,
                                          .files = 2,
                                          .planned = 5,
                                          .seconds = 4}));
}

TEST_F(UpdateResultTest, ReachesTheHostOfSeveralUpdates) {
  SeveralUpdates updates(run, {});
  updates.UpdateEnded({.workout = "Monday", .files = 7});
  ASSERT_THAT(run.results, SizeIs(1));
  EXPECT_EQ(run.results[0].files, 7U);
}

}  // namespace
}  // namespace repvolta
