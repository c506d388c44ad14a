#include "editing/SetValueEditing.h"

#include <optional>

#include "base/Numbers.h"
#include "base/Text.h"
#include "editing/ScreenTexts.h"

namespace repvolta {
namespace {

std::optional<float> AskForNumber(Editor& editor) {
  const std::string answer = editor.dialogs.AskText("Enter new Value:", "Change Exercise Value");
  if (TrimBlanks(answer).empty()) return std::nullopt;
  const double number = LeadingNumber(answer);
  if (number < 0) return std::nullopt;
  return CheckedSingle(number);
}

/// `change` takes the record and the number. It works on a copy, so that nothing is changed if it
/// throws.
template <class Change>
void ChangeNumber(Editor& editor, int row, Change change) {
  if (row < 0) return;
  const std::optional<float> number = AskForNumber(editor);
  if (!number) return;
  ExerciseRecord changed = editor.Exercise();
  change(changed, *number);
  editor.Exercise() = changed;
  ShowExercise(editor);
  SaveChangedWorkout(editor);
}

void ChangeField(Editor& editor, int row, SetSingles ExerciseRecord::*field) {
  ChangeNumber(editor, row,
               [&](ExerciseRecord& record, float number) { (record.*field)[row] = number; });
}

void ChangeFrequency(Editor& editor, int row, SetSingles ExerciseRecord::*frequency,
                     SetDates ExerciseRecord::*nextUpdate) {
  ChangeNumber(editor, row, [&](ExerciseRecord& record, float days) {
    (record.*frequency)[row] = days;
    (record.*nextUpdate)[row] = editor.program.clock.Today() + static_cast<double>(days);
    // Throws for days that could not be shown.
    DaysText(days, (record.*nextUpdate)[row], editor.program.clock.Now());
  });
}

}  // namespace

void SetList1_DblClick(Editor& editor, int row) {
  ChangeField(editor, row, &ExerciseRecord::SetValue1);
}

void SetList2_DblClick(Editor& editor, int row) {
  ChangeField(editor, row, &ExerciseRecord::SetValue2);
}

void SetListInc1_DblClick(Editor& editor, int row) {
  ChangeField(editor, row, &ExerciseRecord::SetIncrement1);
}

void SetListInc2_DblClick(Editor& editor, int row) {
  ChangeField(editor, row, &ExerciseRecord::SetIncrement2);
}

void FreqList1_DblClick(Editor& editor, int row) {
  ChangeFrequency(editor, row, &ExerciseRecord::SetFrequency1, &ExerciseRecord::NextUpdate1);
}

void FreqList2_DblClick(Editor& editor, int row) {
  ChangeFrequency(editor, row, &ExerciseRecord::SetFrequency2, &ExerciseRecord::NextUpdate2);
}

void NextUpdateList_DblClick(Editor& editor, int row) {
  if (row < 0) return;
  const ExerciseRecord& exercise = editor.Exercise();
  editor.dialogs.ShowMessage("Field 1 Next Update Date: " + DateText(exercise.NextUpdate1[row]) +
                             "\rField 2 Next Update Date: " + DateText(exercise.NextUpdate2[row]));
}

}  // namespace repvolta
