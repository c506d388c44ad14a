#include <gtest/gtest.h>

#include "app/Records.h"

namespace repvolta {
namespace {

TEST(FixedText, CutsLongTexts) {
  EXPECT_EQ(FixedText<25>(std::string(30, 'x')).Text(), std::string(25, 'x'));
}

TEST(FixedText, IsTrimmedOnReading) {
  const FixedText<256> name("  Bench Press  ");
  EXPECT_EQ(name.Text(), "  Bench Press");
  EXPECT_EQ(name.Trimmed(), "Bench Press");
}

TEST(FixedText, IsBlankWithoutOtherCharacters) {
  EXPECT_TRUE(FixedText<256>("   ").IsBlank());
  EXPECT_FALSE(FixedText<256>(" x ").IsBlank());
}

TEST(Slots, RefuseAnyOtherIndex) {
  ExerciseSlots workout;
  EXPECT_NO_THROW(workout[51]);
  EXPECT_THROW(workout[52], std::out_of_range);
  EXPECT_THROW(workout[-1], std::out_of_range);
  EXPECT_THROW(workout[0].SetValue1[17], std::out_of_range);
  EXPECT_THROW(workout[0].MusicFile[12], std::out_of_range);
}

}  // namespace
}  // namespace repvolta
