#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "update/ChosenWorkouts.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::StrEq;
using testing::ThrowsMessage;

ProgramState Listed() {
  ProgramState state;
  state.WorkoutNames = {"Monday.RPV", "monday.RPV", "tuesday.rpv"};
  return state;
}

TEST(ChosenWorkouts, AreAllWithoutOperands) {
  EXPECT_THAT(ChosenWorkouts(Listed(), {}), ElementsAre("Monday.RPV", "monday.RPV", "tuesday.rpv"));
}

TEST(ChosenWorkouts, AreNamedWithOrWithoutExtensionInAnyCase) {
  EXPECT_THAT(ChosenWorkouts(Listed(), {"TUESDAY", "tuesday.RPV"}),
              ElementsAre("tuesday.rpv", "tuesday.rpv"));
}

TEST(ChosenWorkouts, AreThoseOfTheSameCaseFirst) {
  EXPECT_THAT(ChosenWorkouts(Listed(), {"monday", "Monday.RPV"}),
              ElementsAre("monday.RPV", "Monday.RPV"));
}

TEST(ChosenWorkouts, AreRefusedWhenOneIsNotThere) {
  EXPECT_THAT([] { ChosenWorkouts(Listed(), {"Monday", "Someday"}); },
              ThrowsMessage<NoSuchWorkout>(StrEq("There is no workout Someday")));
  EXPECT_THROW(ChosenWorkouts(Listed(), {""}), NoSuchWorkout);
}

}  // namespace
}  // namespace repvolta
