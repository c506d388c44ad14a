#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "update/PlanText.h"

#include "support/SampleDryRun.h"

namespace repvolta {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;
using Severity = PlannedProblem::Severity;

TEST(PlanText, ShowsWhatGrowsTheSentenceTheFilesAndTheTotals) {
  EXPECT_EQ(PlanText(SampleDryRun()),
            "Monday.RPV on 2007-03-25\n"
            "\n"
            "  Squat\n"
            "    Set 1, field 1 grows from 50 to 52.5\n"
            "    Says: Squat - 1 set, 52.5kg for 10reps\n"
            "      ~00:07   ~0.1 MB  RV001-Instructions.mp3\n"
            "       03:21    4.8 MB  RV002-Song.mp3\n"
            "       03:21    4.8 MB  RV003-Drawn.mp3 (example)\n"
            "\n"
            "  3 files, 06:49, 9.6 MB; there is room for 300 MB\n"
            "  Folder: /player/Monday/\n"
            "  Play list: Monday.M3U\n"
            "\n"
            "(example): random music; the update draws its own.\n");
}

TEST(PlanText, BeginsWithWhatWillGoWrong) {
  DryRun run = SampleDryRun();
  run.problems = {{Severity::kError, "Tuesday.RPV could not be loaded"}};
  run.plans[0].problems = {SampleProblem(Severity::kError, "File not found. /gone.mp3"),
                           SampleProblem(Severity::kWarning, "The list is old.")};
  EXPECT_THAT(PlanText(run), StartsWith("ERROR: Tuesday.RPV could not be loaded\n"
                                        "\n"
                                        "Monday.RPV on 2007-03-25\n"
                                        "  ERROR: File not found. /gone.mp3\n"
                                        "  WARNING: The list is old.\n"));
}

TEST(PlanText, SaysWhyAValueStays) {
  DryRun run = SampleDryRun();
  run.plans[0].exercises[0].growth[0].failure = "The number is too large";
  EXPECT_THAT(PlanText(run), HasSubstr("    Set 1, field 1 stays 50: The number is too large\n"));
}

TEST(PlanText, AddsUpSeveralWorkouts) {
  DryRun run = SampleDryRun();
  run.plans.push_back(SamplePlan());
  EXPECT_THAT(PlanText(run), HasSubstr("\nAll workouts: 6 files, 13:38, 19.2 MB\n"));
}

TEST(PlanText, SpeaksOfExamplesOnlyWhereTheyAre) {
  DryRun run = SampleDryRun();
  run.plans[0].exercises[0].files.pop_back();
  EXPECT_THAT(PlanText(run), Not(HasSubstr("example")));
}

TEST(PlanText, SaysWhatIsNotKnown) {
  DryRun run = SampleDryRun();
  run.plans[0].room.reset();
  run.plans[0].exercises[0].files[1].seconds = -1;
  EXPECT_THAT(PlanText(run), HasSubstr("; the room is not known\n"));
  EXPECT_THAT(PlanText(run), HasSubstr("       --:--    4.8 MB  RV002-Song.mp3\n"));
}

TEST(PlanText, LetsNoNameControlTheTerminal) {
  DryRun run = SampleDryRun();
  run.plans[0].exercises[0].name = "Squat\x1b[2J\nERROR";
  EXPECT_THAT(PlanText(run), HasSubstr("  Squat?[2J?ERROR\n"));
}

TEST(PlanText, IsEmptyWithoutWorkouts) { EXPECT_EQ(PlanText({kSampleDay, {}, {}}), ""); }

TEST(PlayTimeText, HasMinutesAndSecondsOfAnyLength) {
  EXPECT_EQ(PlayTimeText(0), "00:00");
  EXPECT_EQ(PlayTimeText(201), "03:21");
  EXPECT_EQ(PlayTimeText(60'000'000), "1000000:00");
  EXPECT_EQ(PlayTimeText(-1), "--:--");
}

TEST(SizeText, IsRoundedUpToATenthOfAMegabyte) {
  EXPECT_EQ(SizeText(0), "0.0 MB");
  EXPECT_EQ(SizeText(1), "0.1 MB");
  EXPECT_EQ(SizeText(4'800'000), "4.8 MB");
  EXPECT_EQ(SizeText(4'800'001), "4.9 MB");
  EXPECT_EQ(SizeText(999'999'999'999), "1000000.0 MB");
}

TEST(IsoDayText, NamesTheDayOfADateAndNoneWhereThereIsNone) {
  EXPECT_EQ(IsoDayText(39166.75), "2007-03-25");
  EXPECT_EQ(IsoDayText(1e300), "");
  EXPECT_EQ(IsoDayText(std::nan("")), "");
}

}  // namespace
}  // namespace repvolta
