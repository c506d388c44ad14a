#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "update/UpdateArguments.h"

namespace repvolta {
namespace {

using Task = UpdateArguments::Task;

UpdateArguments Parsed(Task task, const std::vector<std::string>& workouts = {}) {
  return {.task = task, .workouts = workouts};
}

std::string RefusalOf(const std::vector<std::string>& words) {
  try {
    ParseUpdateArguments(words);
  } catch (const UsageError& error) {
    return error.what();
  }
  return "";
}

TEST(ParseUpdateArguments, TakesWordsAsWorkoutsToUpdate) {
  EXPECT_EQ(ParseUpdateArguments({}), Parsed(Task::kUpdate));
  EXPECT_EQ(ParseUpdateArguments({"Monday", "", "leg day.RPV"}),
            Parsed(Task::kUpdate, {"Monday", "", "leg day.RPV"}));
}

TEST(ParseUpdateArguments, TakesOptionsBeforeAndBehindTheWorkouts) {
  EXPECT_EQ(ParseUpdateArguments({"--dry-run", "Monday"}), Parsed(Task::kShowPlan, {"Monday"}));
  EXPECT_EQ(ParseUpdateArguments({"Monday", "--dry-run"}), Parsed(Task::kShowPlan, {"Monday"}));
  EXPECT_EQ(ParseUpdateArguments({"--json", "Monday", "--dry-run"}),
            Parsed(Task::kShowPlanAsJson, {"Monday"}));
}

TEST(ParseUpdateArguments, PutsHelpBeforeVersionBeforeAllElse) {
  EXPECT_EQ(ParseUpdateArguments({"--version"}), Parsed(Task::kShowVersion));
  EXPECT_EQ(ParseUpdateArguments({"--dry-run", "--version"}), Parsed(Task::kShowVersion));
  EXPECT_EQ(ParseUpdateArguments({"--json", "--version", "--help"}), Parsed(Task::kShowHelp));
}

TEST(ParseUpdateArguments, RefusesEveryOtherWordThatBeginsWithADash) {
  for (const char* word : {"-", "--", "-n", "-h", "--dry", "--dry-run=yes", "--JSON", "-Monday"}) {
    EXPECT_EQ(RefusalOf({"--help", "--dry-run", "--json", word}),
              std::string(word) + " is no workout; usage: repvolta-update [WORKOUT ...]");
  }
}

TEST(ParseUpdateArguments, RefusesJsonOfAnUpdate) {
  EXPECT_EQ(RefusalOf({"Monday", "--json"}),
            "--json needs --dry-run; usage: repvolta-update --dry-run --json [WORKOUT ...]");
}

TEST(UpdateHelp, NamesEveryOption) {
  for (const char* option : {"--dry-run", "--json", "--help", "--version"}) {
    EXPECT_THAT(UpdateHelp(), testing::HasSubstr(option));
  }
}

}  // namespace
}  // namespace repvolta
