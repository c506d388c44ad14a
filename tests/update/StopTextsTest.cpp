#include <gtest/gtest.h>

#include "update/StopTexts.h"

namespace repvolta {
namespace {

TEST(StopTexts, SayHowManyFilesAreThereAndWhoseAreMissing) {
  EXPECT_EQ(StoppedText(7, 20, {"Squat", "Bench Press", "Row"}),
            "STOPPED: 7 of 20 files are on the player; files of Squat, Bench Press and Row are "
            "missing.");
  EXPECT_EQ(StoppedText(0, 2, {"Squat"}),
            "STOPPED: 0 of 2 files are on the player; files of Squat are missing.");
}

TEST(StopTexts, SayNothingOfMissingFilesWhenThereAreNone) {
  EXPECT_EQ(StoppedText(20, 20, {}), "STOPPED: 20 of 20 files are on the player.");
}

TEST(StopTexts, CountOneFileAsOne) {
  EXPECT_EQ(StoppedText(1, 3, {}), "STOPPED: 1 of 3 files is on the player.");
  EXPECT_EQ(StoppedText(0, 1, {"Squat"}),
            "STOPPED: 0 of 1 file is on the player; files of Squat are missing.");
}

TEST(StopTexts, SayThatAWorkoutIsAsBefore) {
  EXPECT_EQ(StoppedUnchangedText("Monday.RPV"),
            "STOPPED: No new file is on the player, and Monday.RPV is as it was before.");
}

TEST(StopTexts, NameTheWorkoutsThatAreNotUpdated) {
  EXPECT_EQ(NotUpdatedText({"A.RPV"}), "STOPPED: A.RPV is not updated.");
  EXPECT_EQ(NotUpdatedText({"A.RPV", "B.RPV"}), "STOPPED: A.RPV and B.RPV are not updated.");
}

}  // namespace
}  // namespace repvolta
