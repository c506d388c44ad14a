#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "update/Steps.h"
#include "update/UpdateFixture.h"
#include "update/UpdateWork.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint64_t kMebibyte = std::uint64_t{1} << 20;
constexpr std::uint64_t kInstruction = 2 * kMebibyte;
constexpr std::uint64_t kFlush = kMebibyte;

/// An update of two exercises with songs of 100 and 200 bytes, and of 300.
class UpdateWorkTest : public UpdateFixture {
 protected:
  UpdateWorkTest() {
    PutFile("music/A.mp3", Bytes(100));
    PutFile("music/B.mp3", Bytes(200));
    PutFile("music/C.mp3", Bytes(300));
    ExerciseRecord& squat = AddNamed("Squat");
    AddSong(squat, Full("music/A.mp3"));
    AddSong(squat, " " + Full("music/B.mp3"));
    AddSong(AddNamed("Row"), Full("music/C.mp3"));
    run.isWatched = true;
  }

  void PlanAll() { work.Plan(WorkOfExercises(state.Workout, state.NumberOfExercises)); }

  std::uint64_t LastDone() const { return run.progress.back().done; }

  Steps steps{run, run};
  UpdateWork work{steps, run};
};

TEST_F(UpdateWorkTest, IsTheBytesOfTheSongsAndAnEstimateOfTheRest) {
  EXPECT_EQ(AmountOfWork(WorkOfExercises(state.Workout, 2)), 600 + 2 * kInstruction + kFlush);
}

TEST_F(UpdateWorkTest, IsThatOfTheDrawnSongs) {
  const auto exercises = WorkOfExercises(state.Workout, 2, {{0, {Full("music/C.mp3")}}});
  EXPECT_THAT(exercises[0].songs, ElementsAre(Full("music/C.mp3")));
  EXPECT_THAT(exercises[1].songs, ElementsAre(Full("music/C.mp3")));
}

TEST_F(UpdateWorkTest, IsNothingForSongsThatAreGone) {
  fs::remove("music/A.mp3");
  EXPECT_EQ(AmountOfWork(WorkOfExercises(state.Workout, 1)), 200 + kInstruction + kFlush);
}

TEST_F(UpdateWorkTest, IsDoneFileByFile) {
  PlanAll();
  EXPECT_EQ(run.progress.back(), (WorkDone{0, 600 + 2 * kInstruction + kFlush, ""}));
  work.BeginInstruction(0);
  EXPECT_EQ(run.progress.back().atHand, "Instruction of Squat");
  work.EndFile();
  EXPECT_EQ(LastDone(), kInstruction);
  work.BeginSong("/music/A.mp3");
  EXPECT_EQ(run.progress.back().atHand, "A.mp3");
  work.EndFile();
  EXPECT_EQ(LastDone(), kInstruction + 100);
  work.BeginFlush();
  EXPECT_EQ(LastDone(), 600 + 2 * kInstruction);
  EXPECT_EQ(run.progress.back().atHand, "Writing to the player");
  work.End();
  EXPECT_EQ(LastDone(), run.progress.back().total);
}

TEST_F(UpdateWorkTest, IsDoneWithinALongCopy) {
  PlanAll();
  work.BeginInstruction(0);
  work.BeginSong("A.mp3");
  const CopyWatch watch = work.Watch();
  watch(30);
  EXPECT_EQ(LastDone(), kInstruction + 30);
  // The song has grown since its size was looked up.
  watch(1000);
  EXPECT_EQ(LastDone(), kInstruction + 100);
}

TEST_F(UpdateWorkTest, CatchesUpWithTheNextExercise) {
  PlanAll();
  work.BeginInstruction(1);
  EXPECT_EQ(LastDone(), kInstruction + 300);
}

TEST_F(UpdateWorkTest, StandsStillForMoreSongsThanThereAreSlots) {
  PlanAll();
  work.BeginInstruction(1);
  for (int i = 0; i < 20; ++i) {
    work.BeginSong("C.mp3");
    work.EndFile();
  }
  EXPECT_EQ(LastDone(), 600 + 2 * kInstruction);
}

TEST_F(UpdateWorkTest, EndsACopyThatIsStopped) {
  PlanAll();
  work.BeginInstruction(0);
  const CopyWatch watch = work.Watch();
  run.stopRequested = [] { return true; };
  EXPECT_THROW(watch(1), UpdateStopped);
}

TEST_F(UpdateWorkTest, IsToldToNobodyWhoDoesNotWatch) {
  run.isWatched = false;
  PlanAll();
  work.BeginInstruction(0);
  EXPECT_THAT(run.progress, IsEmpty());
  EXPECT_FALSE(work.Watch());
}

TEST_F(UpdateWorkTest, OfAWholeUpdateIsToldToItsEndAndNeverGoesBack) {
  Update();
  std::vector<std::uint64_t> done;
  std::vector<std::string> atHand;
  for (const WorkDone& told : run.progress) {
    EXPECT_EQ(told.total, 600 + 2 * kInstruction + kFlush);
    done.push_back(told.done);
    if (!told.atHand.empty()) atHand.push_back(told.atHand);
  }
  EXPECT_TRUE(std::is_sorted(done.begin(), done.end()));
  EXPECT_EQ(done.back(), run.progress.back().total);
  EXPECT_THAT(atHand, ElementsAre("Instruction of Squat", "A.mp3", "B.mp3", "Instruction of Row",
                                  "C.mp3", "Writing to the player"));
}

TEST_F(UpdateWorkTest, OfALongSongIsToldAtThePaceOfItsCopy) {
  PutFile("music/C.mp3", Bytes(5 * kMebibyte));
  Update();
  std::vector<std::uint64_t> ofSong;
  for (const WorkDone& told : run.progress) {
    if (told.atHand == "C.mp3") ofSong.push_back(told.done - 300 - 2 * kInstruction);
  }
  EXPECT_THAT(ofSong, ElementsAre(0, kMebibyte, 2 * kMebibyte, 3 * kMebibyte, 4 * kMebibyte,
                                  5 * kMebibyte));
  EXPECT_EQ(fs::file_size("player/Monday/RV005-C.mp3") > 5 * kMebibyte, true);
}

}  // namespace
}  // namespace repvolta
