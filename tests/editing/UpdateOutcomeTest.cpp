#include <gmock/gmock.h>

#include "app/Options.h"
#include "base/File.h"
#include "editing/UpdateOutcome.h"

#include "support/WindowlessFixture.h"

namespace repvolta {
namespace {

using testing::HasSubstr;

/// A complete update of 23 files, 41 minutes and 10 seconds.
UpdateResult Complete(const std::string& workout) {
  return {.workout = workout,
          .folder = "/player/" + workout + "/",
          .end = UpdateResult::End::kComplete,
          .files = 23,
          .planned = 23,
          .seconds = 41 * 60 + 10};
}

UpdateResult Stopped(std::size_t files) {
  UpdateResult result = Complete("Monday");
  result.end = UpdateResult::End::kStopped;
  result.files = files;
  result.seconds = files == 0 ? 0 : 45;
  return result;
}

std::string TextOf(const std::vector<UpdateResult>& results) {
  UpdateOutcome outcome;
  for (const UpdateResult& result : results) outcome.Add(result);
  return outcome.Text();
}

TEST(UpdateOutcome, TellsTheFilesTheirTimeAndTheErrors) {
  EXPECT_EQ(TextOf({Complete("Monday")}), "Monday: 23 files, 41 min, no errors");
}

TEST(UpdateOutcome, CountsErrorsAndWarnings) {
  UpdateOutcome outcome;
  outcome.Add(Complete("Monday"));
  outcome.AddLine(LineKind::kPlain);
  outcome.AddLine(LineKind::kWarning);
  EXPECT_EQ(outcome.Text(), "Monday: 23 files, 41 min, 1 warning");
  outcome.AddLine(LineKind::kError);
  outcome.AddLine(LineKind::kWarning);
  EXPECT_EQ(outcome.Text(), "Monday: 23 files, 41 min, 1 error, 2 warnings");
}

TEST(UpdateOutcome, SumsSeveralWorkouts) {
  EXPECT_EQ(TextOf({Complete("A"), Complete("B"), Complete("C")}),
            "3 workouts: 69 files, 124 min, no errors");
}

TEST(UpdateOutcome, TellsWhatAStopHasLeft) {
  EXPECT_EQ(TextOf({Stopped(7)}), "Monday, stopped: 7 of 23 files, 45 s, no errors");
  EXPECT_EQ(TextOf({Stopped(0)}), "Monday, stopped: no files, no errors");
  EXPECT_EQ(TextOf({Stopped(23)}), "Monday, stopped: 23 files, 45 s, no errors");
  EXPECT_EQ(TextOf({Complete("A"), Stopped(7)}),
            "2 workouts, stopped: 30 of 46 files, 42 min, no errors");
}

TEST(UpdateOutcome, SaysWhenAPlayTimeIsNotKnown) {
  UpdateResult result = Complete("Monday");
  result.unknownSeconds = 1;
  EXPECT_EQ(TextOf({result}), "Monday: 23 files, more than 41 min, no errors");
  result.files = 1;
  result.seconds = 0;
  EXPECT_EQ(TextOf({result}), "Monday: 1 file, no errors");
}

TEST(UpdateOutcome, NamesTheFolderOfTheFiles) {
  UpdateOutcome outcome;
  EXPECT_EQ(outcome.Folder(), "");
  outcome.Add(Complete("A"));
  EXPECT_EQ(outcome.Folder(), "/player/A/");
  outcome.Add(Complete("B"));
  EXPECT_EQ(outcome.Folder(), "/player/");
}

TEST(UpdateOutcome, IsCompleteWithAWorkoutThatIs) {
  UpdateOutcome outcome;
  EXPECT_TRUE(outcome.IsEmpty());
  outcome.Add(Stopped(7));
  EXPECT_FALSE(outcome.HasCompleteWorkout());
  outcome.Add(Complete("A"));
  EXPECT_TRUE(outcome.HasCompleteWorkout());
}

class PlayerHint : public WindowlessFixture {};

TEST_F(PlayerHint, IsGivenOnceInALife) {
  EXPECT_THAT(TakePlayerHint(editor), HasSubstr("into the player"));
  EXPECT_EQ(TakePlayerHint(editor), "");
  ProgramState later;
  LoadOptions(later);
  EXPECT_TRUE(Get(later.Options, kPlayerHintShown));
}

TEST_F(PlayerHint, IsGivenWithoutAWordWhenItCannotBeNoted) {
  state.OptionsAreUnread = true;
  EXPECT_THAT(TakePlayerHint(editor), HasSubstr("into the player"));
  EXPECT_TRUE(window.messages.empty());
  EXPECT_FALSE(FileExists("options.conf"));
}

}  // namespace
}  // namespace repvolta
