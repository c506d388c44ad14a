#pragma once

#include "app/UpdateDays.h"
#include "editing/Editor.h"

namespace repvolta {

/// The update days of this program's options.
UpdateDays ChosenUpdateDays(const Editor& editor);

/// Keeps the days of the week on which updates are made, for what is said of growth ahead. The
/// exercise tab follows even if they cannot be saved. Throws UnsavedChange.
void ChooseUpdateDays(const Editor& editor, const UpdateDays& days);

}  // namespace repvolta
