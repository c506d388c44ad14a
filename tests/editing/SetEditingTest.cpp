#include <deque>
#include <stdexcept>
#include <utility>

#include "base/FileError.h"
#include "editing/SetEditing.h"

#include "support/EditorFixture.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::ThrowsMessage;

/// The exercise tab with one exercise.
class SetEditing : public EditorFixture {
 protected:
  SetEditing() { AddNewExercise("Squat"); }

  ExerciseRecord& Exercise() { return state.Workout[0]; }

  void Add(const std::deque<std::string>& answers) {
    dialogs.asked.clear();
    dialogs.answers = answers;
    AddNewSetButton_Click(editor);
  }

  void Remove(int row) {
    dialogs.answers = {"OK"};
    RemoveSelectedSetButton_Click(editor, row);
  }

  /// Three sets whose numbers and dates all differ.
  void AddThreeSets() {
    ExerciseRecord& exercise = Exercise();
    exercise.NumberOfSets = 3;
    for (int i = 0; i < 3; ++i) {
      const auto number = static_cast<float>(10 * (i + 1));
      exercise.SetValue1[i] = number + 1;
      exercise.SetValue2[i] = number + 2;
      exercise.SetIncrement1[i] = number + 3;
      exercise.SetIncrement2[i] = number + 4;
      exercise.SetFrequency1[i] = number + 5;
      exercise.SetFrequency2[i] = number + 6;
      exercise.NextUpdate1[i] = kToday + i;
      exercise.NextUpdate2[i] = kToday - i;
    }
    Show();
  }

  static std::vector<float> NumbersOf(const ExerciseRecord& exercise, int set) {
    return {exercise.SetValue1[set],     exercise.SetValue2[set],     exercise.SetIncrement1[set],
            exercise.SetIncrement2[set], exercise.SetFrequency1[set], exercise.SetFrequency2[set]};
  }

  static void ExpectNumbers(int set, const std::vector<float>& expected) {
    EXPECT_EQ(NumbersOf(Saved()[0], set), expected) << "set " << set;
  }
};

TEST_F(SetEditing, AddingAsksForBothFieldsByName) {
  const std::vector<std::pair<std::string, std::string>> names = {
      {"Weight", "Reps"}, {"Level", "Time"}, {"Distance", "Speed"}, {"User1", "User2"}};
  for (std::int16_t type = 0; type < 4; ++type) {
    Exercise().SetType = type;
    Exercise().NumberOfSets = 0;
    Add({"1", "2"});
    const auto& [first, second] = names[static_cast<std::size_t>(type)];
    EXPECT_THAT(dialogs.asked,
                ElementsAre("ask|" + first + "|Enter the " + first + " required:",
                            "ask|" + second + "|Enter the " + second + " required:"));
  }
}

TEST_F(SetEditing, AddingSavesAndShowsTheSet) {
  Add({"62.5", "10"});
  EXPECT_EQ(Saved()[0].NumberOfSets, 1);
  ExpectNumbers(0, {62.5, 10, 0, 0, 0, 0});
  EXPECT_THAT(screen.sets[kSetList1], ElementsAre("62.5"));
  EXPECT_THAT(screen.sets[kSetList2], ElementsAre("10"));
}

TEST_F(SetEditing, NoControlCountsWhileTheValuesAreAskedFor) {
  int asked = 0;
  dialogs.whenAsked = [&] {
    ++asked;
    EXPECT_TRUE(state.ScreenUpdating);
  };
  Add({"1", "2"});
  EXPECT_EQ(asked, 2);
  EXPECT_FALSE(state.ScreenUpdating);
}

TEST_F(SetEditing, CancelAddsASetWithZeros) {
  Add({"", ""});
  EXPECT_EQ(Saved()[0].NumberOfSets, 1);
  ExpectNumbers(0, {0, 0, 0, 0, 0, 0});
}

TEST_F(SetEditing, TheNewSetKeepsWhatItsSlotHeldBesides) {
  Exercise().SetIncrement1[0] = 4;
  Exercise().NextUpdate2[0] = 1000;
  Add({"1", "2"});
  EXPECT_EQ(Saved()[0].SetIncrement1[0], 4);
  EXPECT_EQ(Saved()[0].NextUpdate2[0], 1000);
}

TEST_F(SetEditing, AFourthSetIsRefused) {
  AddThreeSets();
  AddNewSetButton_Click(editor);
  EXPECT_THAT(dialogs.asked, ElementsAre("message|Repvolta|Cannot add any more Sets"));
  EXPECT_EQ(Exercise().NumberOfSets, 3);
}

TEST_F(SetEditing, AValueThatIsTooLargeAddsNothing) {
  for (const std::deque<std::string>& answers :
       {std::deque<std::string>{"1e39"}, std::deque<std::string>{"5", "1e39"}}) {
    EXPECT_THAT([&] { Add(answers); },
                ThrowsMessage<std::overflow_error>("The number is too large"));
    EXPECT_EQ(Exercise().NumberOfSets, 0);
    EXPECT_EQ(Exercise().SetValue1[0], 0);
    EXPECT_FALSE(state.ScreenUpdating);
  }
}

TEST_F(SetEditing, LeadingNumbersBecomeValues) {
  const std::vector<std::pair<std::string, float>> values = {
      {"12abc", 12.0F},
      {"abc", 0.0F},
      {" 7 ", 7.0F},
      {"-5", -5.0F},
      {"+3", 3.0F},
      {"1e3", 1000.0F},
      {"nan", 0.0F},
      {"inf", 0.0F},
      {"0x10", 0.0F},
      {"1,5", 1.0F},
      {"", 0.0F},
      {".5", 0.5F},
      {"7" + std::string(100000, ' '), 7.0F}};
  for (const auto& [answer, value] : values) {
    Exercise().NumberOfSets = 0;
    Add({answer, answer});
    EXPECT_EQ(Saved()[0].SetValue1[0], value) << answer.substr(0, 20);
    EXPECT_EQ(Saved()[0].SetValue2[0], value) << answer.substr(0, 20);
  }
}

TEST_F(SetEditing, ASetThatCannotBeSavedIsToldAndShown) {
  BlockWorkouts();
  EXPECT_THAT([this] { Add({"1", "2"}); },
              ThrowsMessage<UnsavedChange>(HasSubstr("workouts/Monday.RPV could not be")));
  EXPECT_THAT(screen.sets[kSetList1], ElementsAre("1"));
}

TEST_F(SetEditing, RemovingAsks) {
  AddThreeSets();
  dialogs.answers = {"Cancel"};
  RemoveSelectedSetButton_Click(editor, 1);
  EXPECT_THAT(dialogs.asked,
              ElementsAre("confirm|Remove Set|Are you SURE you want to remove the selected set?"));
  EXPECT_EQ(Exercise().NumberOfSets, 3);
}

TEST_F(SetEditing, RemovingTheFirstOfThreeMovesTheNumbersAndLeavesTheDates) {
  AddThreeSets();
  Remove(0);
  EXPECT_EQ(Saved()[0].NumberOfSets, 2);
  ExpectNumbers(0, {21, 22, 23, 24, 25, 26});
  ExpectNumbers(1, {31, 32, 33, 34, 35, 36});
  EXPECT_EQ(Saved()[0].NextUpdate1[0], kToday);
  EXPECT_EQ(Saved()[0].NextUpdate1[1], kToday + 1);
  EXPECT_EQ(Saved()[0].NextUpdate2[1], kToday - 1);
}

TEST_F(SetEditing, RemovingClearsTheSlotBehindTheOldCount) {
  AddThreeSets();
  Exercise().SetValue1[3] = 99;
  Remove(2);
  ExpectNumbers(2, {99, 0, 0, 0, 0, 0});
  ExpectNumbers(3, {0, 0, 0, 0, 0, 0});
}

TEST_F(SetEditing, RemovesOneOfAsManySetsAsAFileHolds) {
  AddThreeSets();
  constexpr int kAll = static_cast<int>(kSetSlots);
  for (int i = 3; i < kAll; ++i) Exercise().SetValue1[i] = static_cast<float>(10 * i);
  Exercise().NumberOfSets = kAll;
  Show();
  Remove(1);
  EXPECT_EQ(Saved()[0].NumberOfSets, kAll - 1);
  ExpectNumbers(1, {31, 32, 33, 34, 35, 36});
  EXPECT_EQ(Saved()[0].SetValue1[kAll - 2], 160);
  EXPECT_EQ(Saved()[0].SetValue1[kAll - 1], 0);
}

TEST_F(SetEditing, TheRowThatTookTheRemovedOnesPlaceIsSelected) {
  AddThreeSets();
  Remove(2);
  EXPECT_EQ(screen.selectedSet, 1);
  Remove(0);
  EXPECT_EQ(screen.selectedSet, 0);
  Remove(0);
  EXPECT_EQ(screen.selectedSet, -1);
}

TEST_F(SetEditing, NothingIsRemovedOrMovedWithoutASelectedRow) {
  AddThreeSets();
  RemoveSelectedSetButton_Click(editor, -1);
  MoveSetUpListButton_Click(editor, -1);
  ManualDateResetButton_Click(editor, -1);
  EXPECT_THAT(dialogs.asked, IsEmpty());
  EXPECT_EQ(Exercise().NextUpdate1[1], kToday + 1);
}

TEST_F(SetEditing, NothingIsRemovedWhenThereAreNoSets) {
  AddThreeSets();
  Exercise().NumberOfSets = 0;
  RemoveSelectedSetButton_Click(editor, 1);
  EXPECT_THAT(dialogs.asked, IsEmpty());
}

TEST_F(SetEditing, MovingUpAsks) {
  AddThreeSets();
  dialogs.answers = {"Cancel"};
  MoveSetUpListButton_Click(editor, 1);
  EXPECT_THAT(
      dialogs.asked,
      ElementsAre("confirm|Move Set|Are you SURE you want to move the selected set up the list?"));
  ExpectNumbers(0, {11, 12, 13, 14, 15, 16});
}

TEST_F(SetEditing, MovingUpExchangesTheNumbersAndLeavesTheDates) {
  AddThreeSets();
  dialogs.answers = {"OK"};
  MoveSetUpListButton_Click(editor, 1);
  ExpectNumbers(0, {21, 22, 23, 24, 25, 26});
  ExpectNumbers(1, {11, 12, 13, 14, 15, 16});
  EXPECT_EQ(Saved()[0].NextUpdate1[0], kToday);
  EXPECT_EQ(Saved()[0].NextUpdate1[1], kToday + 1);
  EXPECT_EQ(screen.selectedSet, 0);
}

TEST_F(SetEditing, TheFirstSetCannotMoveUp) {
  AddThreeSets();
  MoveSetUpListButton_Click(editor, 0);
  EXPECT_THAT(dialogs.asked, IsEmpty());
}

TEST_F(SetEditing, TheDatesOfTheSelectedSetAreResetToToday) {
  AddThreeSets();
  ManualDateResetButton_Click(editor, 2);
  EXPECT_EQ(Saved()[0].NextUpdate1[2], kToday);
  EXPECT_EQ(Saved()[0].NextUpdate2[2], kToday);
  EXPECT_EQ(Saved()[0].NextUpdate1[1], kToday + 1);
  EXPECT_EQ(screen.sets[kNextUpdateList][2], " 34,  36");
}

TEST_F(SetEditing, TheKindOfSetsIsSavedAndShown) {
  for (int i : {3, 2, 1, 0}) {
    SetButton_Click(editor, i);
    EXPECT_EQ(Saved()[0].SetType, i);
  }
  SetButton_Click(editor, kDistanceAndSpeed);
  EXPECT_EQ(screen.fieldNames, FieldNames("Distance", "Speed"));
}

TEST_F(SetEditing, TheUnitsAreSaved) {
  UnitsSelection_Click(editor, 1);
  EXPECT_EQ(Saved()[0].Units, kTrue);
  UnitsSelection_Click(editor, 0);
  EXPECT_EQ(Saved()[0].Units, kFalse);
}

TEST_F(SetEditing, ChoicesCountForNothingWhileTheScreenIsUpdating) {
  state.ScreenUpdating = true;
  SetButton_Click(editor, kDistanceAndSpeed);
  UnitsSelection_Click(editor, 1);
  EXPECT_EQ(Exercise().SetType, kWeightAndReps);
  EXPECT_EQ(Exercise().Units, kFalse);
}

}  // namespace
}  // namespace repvolta
