#pragma once

#include "editing/Editor.h"

namespace repvolta {

// A double click on the lists of sets asks for a new number. `row` is the selected row, or -1. An
// empty answer and a negative number change nothing. Each change is shown and saved;
// docs/decisions/0001-errors.md says what happens when that fails. All throw std::overflow_error,
// and change nothing, when the number is too large.

void SetList1_DblClick(Editor& editor, int row);
void SetList2_DblClick(Editor& editor, int row);
void SetListInc1_DblClick(Editor& editor, int row);
void SetListInc2_DblClick(Editor& editor, int row);

// These set the next update date to today plus the new frequency. Growth counts the frequency from
// that date, so the first growth comes after twice the frequency (quirk 30).
void FreqList1_DblClick(Editor& editor, int row);
void FreqList2_DblClick(Editor& editor, int row);

/// Shows both next update dates of the set.
void NextUpdateList_DblClick(Editor& editor, int row);

}  // namespace repvolta
