#include <gtest/gtest.h>

#include "update/Progress.h"

namespace repvolta {
namespace {

using namespace std::chrono_literals;
using Time = ProgressMeter::Time;

/// Reads a meter at seconds after the start of the work.
class ProgressMeterTest : public testing::Test {
 protected:
  ProgressMeterTest() { At(0, 0); }

  Progress At(int seconds, std::uint64_t done, std::uint64_t total = 1000) {
    return meter.Read({.done = done, .total = total, .atHand = "Song.mp3"},
                      Time(1h) + std::chrono::seconds(seconds));
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
  EXPECT_EQ(At(30, 500).left, 10s);
}

TEST_F(ProgressMeterTest, KnowsNoTimeLeftInTheFirstSeconds) {
  EXPECT_EQ(At(2, 500).left, std::nullopt);
  EXPECT_EQ(At(4, 500).left, 4s);
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
  for (int seconds = 10; seconds < 100; seconds += 10) {
    EXPECT_EQ(At(seconds, static_cast<std::uint64_t>(seconds) * 10).left,
              std::chrono::seconds(100 - seconds));
  }
}

TEST_F(ProgressMeterTest, FollowsAnotherSpeedSlowly) {
  ASSERT_EQ(At(10, 500).left, 10s);
  // At this moment the work that is left would take 28 seconds.
  const auto afterAMoment = At(11, 280, 1000).left;
  EXPECT_GT(afterAMoment, 10s);
  EXPECT_LT(afterAMoment, 16s);
  // A read that comes long after counts in full.
  EXPECT_EQ(At(60, 500).left, 60s);
}

TEST_F(ProgressMeterTest, NeverHasLessThanNoTimeLeft) {
  At(10, 900);
  EXPECT_GE(At(14, 900).left, 0s);
  EXPECT_GE(At(16, 901).left, 0s);
}

TEST(TimeLeftText, IsRoundedSoThatItStandsStill) {
  const auto text = [](std::chrono::seconds left) { return TimeLeftText({.left = left}); };
  EXPECT_EQ(text(0s), "a few seconds left");
  EXPECT_EQ(text(4s), "a few seconds left");
  EXPECT_EQ(text(5s), "about 5 seconds left");
  EXPECT_EQ(text(6s), "about 10 seconds left");
  EXPECT_EQ(text(55s), "about 55 seconds left");
  EXPECT_EQ(text(56s), "about 1 minute left");
  EXPECT_EQ(text(85s), "about 1 minute left");
  EXPECT_EQ(text(90s), "about 2 minutes left");
  EXPECT_EQ(text(70min), "about 70 minutes left");
}

TEST(TimeLeftText, IsEmptyWhileTheTimeIsNotKnown) { EXPECT_EQ(TimeLeftText({}), ""); }

TEST(ProgressLine, HasWhatIsKnown) {
  EXPECT_EQ(ProgressLine({.percent = 45, .atHand = "Song.mp3", .left = 100s}),
            "45 %, about 2 minutes left: Song.mp3");
  EXPECT_EQ(ProgressLine({.percent = 0, .atHand = "Song.mp3"}), "0 %: Song.mp3");
  EXPECT_EQ(ProgressLine({.percent = 100}), "100 %");
}

}  // namespace
}  // namespace repvolta
