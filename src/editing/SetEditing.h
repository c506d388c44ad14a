#pragma once

#include "editing/Editor.h"

namespace repvolta {

// The commands that edit the sets of the current exercise. `row` is the selected row of SetList1,
// or -1. Each change is saved and shown; docs/decisions/0001-errors.md says what happens when that
// fails.

/// Asks for the two values of a new set. Throws std::overflow_error, and adds no set, when a value
/// is too large.
void AddNewSetButton_Click(Editor& editor);

void RemoveSelectedSetButton_Click(Editor& editor, int row);
void MoveSetUpListButton_Click(Editor& editor, int row);

/// Sets both next update dates of the set to today.
void ManualDateResetButton_Click(Editor& editor, int row);

void SetButton_Click(Editor& editor, int index);
void UnitsSelection_Click(Editor& editor, int index);

}  // namespace repvolta
