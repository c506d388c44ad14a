#include "editing/SetEditing.h"

#include <array>
#include <utility>

#include "app/ScreenUpdate.h"
#include "base/Numbers.h"
#include "editing/AnswerLines.h"
#include "editing/Answers.h"
#include "editing/ScreenTexts.h"

namespace repvolta {
namespace {

/// The six numbers that move with a set. The two next update dates stay in their slots (quirk 93).
constexpr std::array kNumbersOfSet = {
    &ExerciseRecord::SetValue1,     &ExerciseRecord::SetValue2,     &ExerciseRecord::SetIncrement1,
    &ExerciseRecord::SetIncrement2, &ExerciseRecord::SetFrequency1, &ExerciseRecord::SetFrequency2,
};

void Keep(const Editor& editor) {
  SaveAndShow(editor, [&] { ShowExercise(editor); });
}

void KeepAndSelect(const Editor& editor, int row) {
  SaveAndShow(editor, [&] {
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
  ProgramState& state = editor.State();
  ExerciseRecord& exercise = editor.Exercise();
  if (exercise.NumberOfSets >= MaxSets) {
    editor.dialogs.ShowMessage("Cannot add any more Sets");
    return;
  }
  {
    const ScreenUpdate updating(state);
    const float value1 = AskForValue(editor, 1);
    const float value2 = AskForValue(editor, 2);
    // The rest of the slot stays as it is (quirk 92).
    exercise.SetValue1[exercise.NumberOfSets] = value1;
    exercise.SetValue2[exercise.NumberOfSets] = value2;
    ++exercise.NumberOfSets;
  }
  Keep(editor);
}

void RemoveSelectedSetButton_Click(Editor& editor, int row) {
  ExerciseRecord& exercise = editor.Exercise();
  if (exercise.NumberOfSets < 1 || row < 0) return;
  if (!editor.dialogs.Confirm("Are you SURE you want to remove the selected set?", "Remove Set")) {
    return;
  }
  MoveLaterSetsUp(exercise, row);
  KeepAndSelect(editor, RowAfterRemoval(row, exercise.NumberOfSets));
}

void MoveSetUpListButton_Click(Editor& editor, int row) {
  if (row <= 0) return;
  if (!editor.dialogs.Confirm("Are you SURE you want to move the selected set up the list?",
                              "Move Set")) {
    return;
  }
  ExerciseRecord& exercise = editor.Exercise();
  for (const auto numbers : kNumbersOfSet) {
    std::swap((exercise.*numbers)[row - 1], (exercise.*numbers)[row]);
  }
  KeepAndSelect(editor, row - 1);
}

void ManualDateResetButton_Click(Editor& editor, int row) {
  if (row < 0) return;
  ExerciseRecord& exercise = editor.Exercise();
  exercise.NextUpdate1[row] = exercise.NextUpdate2[row] = editor.program.clock.Today();
  Keep(editor);
}

void SetButton_Click(Editor& editor, int index) {
  if (editor.State().ScreenUpdating) return;
  editor.Exercise().SetType = CheckedInt16(index);
  ShowExercise(editor);
  SaveChangedWorkout(editor);
}

void UnitsSelection_Click(Editor& editor, int index) {
  if (editor.State().ScreenUpdating) return;
  editor.Exercise().Units = index != 0 ? kTrue : kFalse;
  SaveChangedWorkout(editor);
}

}  // namespace repvolta
