#include <gtest/gtest.h>

#include "update/Progress.h"

namespace repvolta {
namespace {

using std::chrono::hours;
using std::chrono::minutes;
using std::chrono::seconds;
using Time = ProgressMeter::Time;

/// Reads a meter at seconds after the start of the work.
class ProgressMeterTest : public testing::Test {
 protected:
  ProgressMeterTest() { At(0, 0); }

  Progress At(int second, std::uint64_t done, std::uint64_t total = 1000) {
    return meter.Read({.done = done, .total = total, .atHand = "Song.mp3"},
                      Time(hours(1)) + seconds(second));
  }

  ProgressMeter meter;
};

TEST_F(ProgressMeterTest, GivesWholePerCent) {
  EXPECT_EQ(At(1, 9).percent, 0);
  EXPECT_EQ(At(1, 456).percent, 45);
  EXPECT_EQ(At(1, 999).percent, 99);
  EXPECT_EQ(At(1, 1000).percent, 100);
}

TEST_F(ProgressMeterTest, NamesWhatIsAtHand) { EXPECT_EQ(At(1, 9).atHand, "Song.mp3"); }

TEST_F(ProgressMeterTest, GivesNoPerCentOfNothing) { EXPECT_EQ(At(0, 0, 0).percent, 0); }

TEST_F(ProgressMeterTest, TakesSizesOfAnyDisk) {
  EXPECT_EQ(At(1, std::uint64_t{1} << 62, std::uint64_t{1} << 63).percent, 50);
}

TEST_F(ProgressMeterTest, NeverGoesBack) {
  At(1, 500);
  EXPECT_EQ(At(2, 500, 2000).percent, 50);
}

TEST_F(ProgressMeterTest, BeginsAnewWithWorkOfWhichNothingIsDone) {
  At(10, 1000);
  EXPECT_EQ(At(20, 0), (Progress{.percent = 0, .atHand = "Song.mp3"}));
  EXPECT_EQ(At(22, 500).left, std::nullopt);
  EXPECT_EQ(At(30, 500).left, seconds(10));
}

TEST_F(ProgressMeterTest, KnowsNoTimeLeftInTheFirstSeconds) {
  EXPECT_EQ(At(2, 500).left, std::nullopt);
  EXPECT_EQ(At(4, 500).left, seconds(4));
}

TEST_F(ProgressMeterTest, KnowsNoTimeLeftBeforeSomeWorkIsDone) {
  EXPECT_EQ(At(60, 29).left, std::nullopt);
  EXPECT_NE(At(60, 31).left, std::nullopt);
}

TEST_F(ProgressMeterTest, HasNoTimeLeftWhenAllIsDone) {
  At(10, 500);
  EXPECT_EQ(At(20, 1000).left, std::nullopt);
}

TEST_F(ProgressMeterTest, CountsDownWhileTheSpeedStays) {
  for (int second = 10; second < 100; second += 10) {
    EXPECT_EQ(At(second, static_cast<std::uint64_t>(second) * 10).left, seconds(100 - second));
  }
}

TEST_F(ProgressMeterTest, FollowsAnotherSpeedSlowly) {
  ASSERT_EQ(At(10, 500).left, seconds(10));
  // At this moment the work that is left would take 28 seconds.
  const auto afterAMoment = At(11, 280, 1000).left;
  EXPECT_GT(afterAMoment, seconds(10));
  EXPECT_LT(afterAMoment, seconds(16));
  // A read that comes long after counts in full.
  EXPECT_EQ(At(60, 500).left, seconds(60));
}

TEST_F(ProgressMeterTest, NeverHasLessThanNoTimeLeft) {
  At(10, 900);
  EXPECT_GE(At(14, 900).left, seconds(0));
  EXPECT_GE(At(16, 901).left, seconds(0));
}

TEST(TimeLeftText, IsRoundedSoThatItStandsStill) {
  const auto text = [](std::chrono::seconds left) { return TimeLeftText({.left = left}); };
  EXPECT_EQ(text(seconds(0)), "a few seconds left");
  EXPECT_EQ(text(seconds(4)), "a few seconds left");
  EXPECT_EQ(text(seconds(5)), "about 5 seconds left");
  EXPECT_EQ(text(seconds(6)), "about 10 seconds left");
  EXPECT_EQ(text(seconds(55)), "about 55 seconds left");
  EXPECT_EQ(text(seconds(56)), "about 1 minute left");
  EXPECT_EQ(text(seconds(85)), "about 1 minute left");
  EXPECT_EQ(text(seconds(90)), "about 2 minutes left");
  EXPECT_EQ(text(minutes(70)), "about 70 minutes left");
}

TEST(TimeLeftText, IsEmptyWhileTheTimeIsNotKnown) { EXPECT_EQ(TimeLeftText({}), ""); }

TEST(ProgressLine, HasWhatIsKnown) {
  EXPECT_EQ(ProgressLine({.percent = 45, .atHand = "Song.mp3", .left = seconds(100)}),
            "45 %, about 2 minutes left: Song.mp3");
  EXPECT_EQ(ProgressLine({.percent = 0, .atHand = "Song.mp3"}), "0 %: Song.mp3");
  EXPECT_EQ(ProgressLine({.percent = 100}), "100 %");
}

}  // namespace
}  // namespace repvolta
