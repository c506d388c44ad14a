#include "editing/SetValueEditing.h"

#include <optional>

#include "editing/AnswerLines.h"
#include "editing/Answers.h"
#include "editing/ScreenTexts.h"
#include "editing/Undo.h"

namespace repvolta {
namespace {

std::optional<float> AskForNumber(Editor& editor, int row, SetColumn column) {
  const Clock& clock = editor.program.clock;
  return SetNumberOf(editor.dialogs.AskText("Enter new Value:", "Change Exercise Value",
                                            SetNumberHelp(editor.Exercise(), row, column, clock)),
                     column, clock);
}

std::string StepNameOf(SetColumn column) {
  switch (column) {
    case kSetList1:
      return "Change First Value";
    case kSetList2:
      return "Change Second Value";
    case kSetListInc1:
      return "Change First Increment";
    case kSetListInc2:
      return "Change Second Increment";
    case kFreqList1:
      return "Change First Frequency";
    default:
      return "Change Second Frequency";
  }
}

/// `change` takes the record and the number. It works on a copy, so that nothing is changed if it
/// throws.
template <class Change>
void ChangeNumber(Editor& editor, int row, SetColumn column, Change change) {
  if (row < 0) return;
  const std::optional<float> number = AskForNumber(editor, row, column);
  if (!number) return;
  editor.history->Change(StepOfRow(editor, StepNameOf(column), StepPlace::List::kSets, row, row),
                         [&](const WorkoutAccess& workout) {
                           ExerciseRecord changed = workout.Exercise();
                           change(changed, *number);
                           workout.Exercise() = changed;
                           ShowExercise(editor);
                           SaveChangedWorkout(editor, workout);
                         });
}

void ChangeField(Editor& editor, int row, SetColumn column, SetSingles ExerciseRecord::* field) {
  ChangeNumber(editor, row, column,
               [&](ExerciseRecord& record, float number) { (record.*field)[row] = number; });
}

void ChangeFrequency(Editor& editor, int row, SetColumn column,
                     SetSingles ExerciseRecord::* frequency,
                     SetDates ExerciseRecord::* nextUpdate) {
  ChangeNumber(editor, row, column, [&](ExerciseRecord& record, float days) {
    (record.*frequency)[row] = days;
    (record.*nextUpdate)[row] = editor.program.clock.Today() + static_cast<double>(days);
  });
}

}  // namespace

void SetList1_DblClick(Editor& editor, int row) {
  ChangeField(editor, row, kSetList1, &ExerciseRecord::SetValue1);
}

void SetList2_DblClick(Editor& editor, int row) {
  ChangeField(editor, row, kSetList2, &ExerciseRecord::SetValue2);
}

void SetListInc1_DblClick(Editor& editor, int row) {
  ChangeField(editor, row, kSetListInc1, &ExerciseRecord::SetIncrement1);
}

void SetListInc2_DblClick(Editor& editor, int row) {
  ChangeField(editor, row, kSetListInc2, &ExerciseRecord::SetIncrement2);
}

void FreqList1_DblClick(Editor& editor, int row) {
  ChangeFrequency(editor, row, kFreqList1, &ExerciseRecord::SetFrequency1,
                  &ExerciseRecord::NextUpdate1);
}

void FreqList2_DblClick(Editor& editor, int row) {
  ChangeFrequency(editor, row, kFreqList2, &ExerciseRecord::SetFrequency2,
                  &ExerciseRecord::NextUpdate2);
}

void NextUpdateList_DblClick(Editor& editor, int row) {
  if (row < 0) return;
  const ExerciseRecord& exercise = editor.Exercise();
  editor.dialogs.ShowMessage("Field 1 Next Update Date: " + DateText(exercise.NextUpdate1[row]) +
                             "\rField 2 Next Update Date: " + DateText(exercise.NextUpdate2[row]));
}

}  // namespace repvolta
