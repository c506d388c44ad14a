#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "voices/FieldLines.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::Optional;

TEST(Fields, LeaveTheRestToTheLast) {
  EXPECT_THAT(Fields("a\tb\tc\td", 3), ElementsAre("a", "b", "c\td"));
  EXPECT_THAT(Fields("a\t\tc", 3), ElementsAre("a", "", "c"));
}

TEST(Fields, AreFewerInAShortLine) {
  EXPECT_THAT(Fields("a\tb", 3), ElementsAre("a", "b"));
  EXPECT_THAT(Fields("", 3), ElementsAre(""));
}

TEST(TwoPlaces, AreReadAsTheyWereWritten) {
  EXPECT_EQ(TwoPlaces(-11.984), "-11.98");
  EXPECT_THAT(NumberIn("-11.98"), Optional(-11.98));
}

TEST(NumberIn, IsNothingForOtherTexts) {
  for (const char* text : {"", "x", "1,5", "1 ", "inf", "nan", "1e300", "-1001"})
    EXPECT_FALSE(NumberIn(text)) << text;
}

}  // namespace
}  // namespace repvolta
