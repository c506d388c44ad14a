#pragma once

#include "editing/Editor.h"

namespace repvolta {

// The commands that edit the sets of the current exercise. `row` is the one selected in SetList1;
// -1: none. Each change is saved and shown; when that fails: docs/decisions/0001-errors.md.

/// Asks for the two values of a new set. Throws std::overflow_error when one is too large; then
/// none is added.
void AddNewSetButton_Click(Editor& editor);

void RemoveSelectedSetButton_Click(Editor& editor, int row);
void MoveSetUpListButton_Click(Editor& editor, int row);

/// Sets both next update dates of the set to today.
void ManualDateResetButton_Click(Editor& editor, int row);

void SetButton_Click(Editor& editor, int index);
void UnitsSelection_Click(Editor& editor, int index);

}  // namespace repvolta
