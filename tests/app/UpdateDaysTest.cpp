#include <gtest/gtest.h>

#include "app/Options.h"
#include "app/UpdateDays.h"

namespace repvolta {
namespace {

TEST(UpdateDays, AreDailyWithoutAChoice) { EXPECT_EQ(ChosenUpdateDays(OptionLines()), kDaily); }

TEST(UpdateDays, AreThoseThatWereKept) {
  OptionLines options;
  PutUpdateDays(options, UpdateDays(0b0001001));
  EXPECT_EQ(ChosenUpdateDays(options), UpdateDays(0b0001001));
  EXPECT_EQ(options.File(), "updates-on-monday = yes\nupdates-on-thursday = yes\n");
}

TEST(UpdateDays, CanBecomeDailyAgain) {
  OptionLines options("updates-on-sunday = yes\n");
  PutUpdateDays(options, kDaily);
  EXPECT_EQ(ChosenUpdateDays(options), kDaily);
  EXPECT_EQ(options.File(), "updates-on-sunday = no\n");
}

TEST(UpdateDays, AreToldWhenTheirLineIsOdd) {
  EXPECT_NE(OddOptions(OptionLines("updates-on-sunday = perhaps\n")), "");
}

}  // namespace
}  // namespace repvolta
