#include "editing/SetEditing.h"

#include <array>
#include <utility>

#include "base/Numbers.h"
#include "editing/AnswerLines.h"
#include "editing/Answers.h"
#include "editing/ScreenTexts.h"
#include "editing/Undo.h"

namespace repvolta {
namespace {

/// The six numbers that move with a set. The two next update dates stay in their slots (quirk 93).
constexpr std::array kNumbersOfSet = {
    &ExerciseRecord::SetValue1,     &ExerciseRecord::SetValue2,     &ExerciseRecord::SetIncrement1,
    &ExerciseRecord::SetIncrement2, &ExerciseRecord::SetFrequency1, &ExerciseRecord::SetFrequency2,
};

constexpr auto kSets = StepPlace::List::kSets;

void Keep(const Editor& editor, const WorkoutAccess& workout) {
  SaveAndShow(editor, workout, [&] { ShowExercise(editor); });
}

void KeepAndSelect(const Editor& editor, const WorkoutAccess& workout, int row) {
  SaveAndShow(editor, workout, [&] {
    ShowExercise(editor);
    editor.screen.SelectSet(row);
  });
}

/// Cancel gives 0 (quirk 91).
float AskForValue(Editor& editor, int field) {
  const FieldNames names = FieldNamesOf(editor.Exercise());
  const std::string& name = field == 1 ? names.first : names.second;
  return NewSetValueOf(editor.dialogs.AskText("Enter the " + name + " required:", name,
                                              NewSetHelp(editor.Exercise(), field)));
}

std::pair<float, float> AskForValues(Editor& editor) {
  const ScreenUpdate updating = editor.program.BeginScreenUpdate();
  const float value1 = AskForValue(editor, 1);
  return {value1, AskForValue(editor, 2)};
}

void MoveLaterSetsUp(ExerciseRecord& exercise, int removed) {
  ExerciseRecord changed = exercise;
  for (const auto numbers : kNumbersOfSet) {
    RemoveItem(changed.*numbers, removed, exercise.NumberOfSets);
  }
  --changed.NumberOfSets;
  exercise = changed;
}

}  // namespace

void AddNewSetButton_Click(Editor& editor) {
  const int count = editor.Exercise().NumberOfSets;
  if (count >= MaxSets) {
    editor.dialogs.ShowMessage("Cannot add any more Sets");
    return;
  }
  const auto [value1, value2] = AskForValues(editor);
  editor.history->Change(StepOfRow(editor, "Add Set", kSets, count, count),
                         [&, first = value1, second = value2](const WorkoutAccess& workout) {
                           ExerciseRecord& exercise = workout.Exercise();
                           // The rest of the slot stays as it is (quirk 92).
                           exercise.SetValue1[count] = first;
                           exercise.SetValue2[count] = second;
                           ++exercise.NumberOfSets;
                           Keep(editor, workout);
                         });
}

void RemoveSelectedSetButton_Click(Editor& editor, int row) {
  const int count = editor.Exercise().NumberOfSets;
  if (count < 1 || row < 0) return;
  if (!editor.dialogs.Confirm("Are you SURE you want to remove the selected set?", "Remove Set")) {
    return;
  }
  const int next = RowAfterRemoval(row, count - 1);
  editor.history->Change(StepOfRow(editor, "Remove Set", kSets, row, next),
                         [&](const WorkoutAccess& workout) {
                           MoveLaterSetsUp(workout.Exercise(), row);
                           KeepAndSelect(editor, workout, next);
                         });
}

void MoveSetUpListButton_Click(Editor& editor, int row) {
  if (row <= 0) return;
  if (!editor.dialogs.Confirm("Are you SURE you want to move the selected set up the list?",
                              "Move Set")) {
    return;
  }
  editor.history->Change(StepOfRow(editor, "Move Set", kSets, row, row - 1),
                         [&](const WorkoutAccess& workout) {
                           ExerciseRecord& exercise = workout.Exercise();
                           for (const auto numbers : kNumbersOfSet) {
                             std::swap((exercise.*numbers)[row - 1], (exercise.*numbers)[row]);
                           }
                           KeepAndSelect(editor, workout, row - 1);
                         });
}

void ManualDateResetButton_Click(Editor& editor, int row) {
  if (row < 0) return;
  editor.history->Change(
      StepOfRow(editor, "Reset Dates", kSets, row, row), [&](const WorkoutAccess& workout) {
        ExerciseRecord& exercise = workout.Exercise();
        exercise.NextUpdate1[row] = exercise.NextUpdate2[row] = editor.program.clock.Today();
        Keep(editor, workout);
      });
}

void SetButton_Click(Editor& editor, int index) {
  if (editor.State().ScreenUpdating) return;
  editor.history->Change(StepOfExercise(editor, "Change Kind of Sets"),
                         [&](const WorkoutAccess& workout) {
                           workout.Exercise().SetType = CheckedInt16(index);
                           ShowExercise(editor);
                           SaveChangedWorkout(editor, workout);
                         });
}

void UnitsSelection_Click(Editor& editor, int index) {
  if (editor.State().ScreenUpdating) return;
  editor.history->Change(StepOfExercise(editor, "Change Units"), [&](const WorkoutAccess& workout) {
    workout.Exercise().Units = index != 0 ? kTrue : kFalse;
    SaveChangedWorkout(editor, workout);
  });
}

}  // namespace repvolta
