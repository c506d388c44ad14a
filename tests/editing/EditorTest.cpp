#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>

#include "app/Settings.h"
#include "editing/Editor.h"

#include "support/SaveChange.h"
#include "support/WindowlessFixture.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

/// The last steps of the commands, with the workout "Monday".
class LastSteps : public WindowlessFixture {
 protected:
  LastSteps() { state.WorkoutFileName = "Monday.RPV"; }

  /// Nothing can be saved.
  static void TakeThePlaces() {
    PutFile("workouts", "in the way");
    fs::create_directory("settings.dat");
  }

  template <class Step>
  std::string WhatIsSaid(Step step) {
    try {
      step();
    } catch (const UnsavedChange& change) {
      return change.what();
    }
    return "";
  }
};

TEST_F(LastSteps, SayThatTheChangeIsNotSaved) {
  TakeThePlaces();
  const std::string workout = WhatIsSaid([&] { SaveChange(editor); });
  const std::string settings = WhatIsSaid([&] { SaveChangedSettings(editor); });
  for (const std::string& said : {workout, settings}) {
    EXPECT_THAT(said, testing::EndsWith("\rThe change is shown, but it is not saved."));
  }
}

TEST_F(LastSteps, ShowTheChangeAlsoWhenItIsNotSaved) {
  int shown = 0;
  SaveChangeAndShow(editor, [&] { ++shown; });
  EXPECT_EQ(shown, 1);
  fs::remove_all("workouts");
  TakeThePlaces();
  EXPECT_THROW(SaveChangeAndShow(editor, [&] { ++shown; }), UnsavedChange);
  EXPECT_EQ(shown, 2);
}

TEST_F(LastSteps, ShowTheSettingsThatAnotherProgramSaved) {
  LoadSettings(state);
  SaveChangedSettings(editor);
  EXPECT_THAT(window.calls, IsEmpty());
  ProgramState other = state;
  other.Settings.OutputPath = "/other";
  SaveSettings(other);
  SaveChangedSettings(editor);
  EXPECT_THAT(window.calls, ElementsAre("settings screen"));
}

/// A window whose tabs cannot show everything.
class BrokenWindow : public RecordingWindow {
 public:
  void UpdateWorkoutScreen() override { throw std::out_of_range("Number 17"); }
  void UpdateExerciseScreen() override { throw std::out_of_range("Number 18"); }
};

TEST_F(LastSteps, TellWhatCannotBeShown) {
  BrokenWindow broken;
  const Editor before = broken.EditorOf(program);
  ShowWorkout(before);
  ShowExercise(before);
  EXPECT_THAT(broken.messages, ElementsAre("The workout cannot be shown as a whole.\rNumber 17",
                                           "The exercise cannot be shown as a whole.\rNumber 18"));
}

TEST(RowAfterRemoval, IsTheOneThatTookThePlaceOrTheLast) {
  EXPECT_EQ(RowAfterRemoval(1, 3), 1);
  EXPECT_EQ(RowAfterRemoval(3, 3), 2);
  EXPECT_EQ(RowAfterRemoval(0, 0), -1);
}

Slots<int, 4> Numbers(int first, int second, int third, int fourth) {
  Slots<int, 4> numbers;
  numbers[0] = first;
  numbers[1] = second;
  numbers[2] = third;
  numbers[3] = fourth;
  return numbers;
}

TEST(RemoveItem, MovesTheLaterItemsUpAndBlanksTheRest) {
  Slots<int, 4> numbers = Numbers(1, 2, 3, 9);
  RemoveItem(numbers, 0, 3);
  EXPECT_EQ(numbers, Numbers(2, 3, 9, 0));
}

TEST(RemoveItem, BlanksTheLastSlotOfAFullList) {
  Slots<int, 4> numbers = Numbers(1, 2, 3, 4);
  RemoveItem(numbers, 3, 4);
  EXPECT_EQ(numbers, Numbers(1, 2, 3, 0));
}

TEST(RemoveItem, RefusesACountBeyondTheSlots) {
  Slots<int, 4> numbers;
  EXPECT_THROW(RemoveItem(numbers, 0, 6), std::out_of_range);
}

}  // namespace
}  // namespace repvolta
