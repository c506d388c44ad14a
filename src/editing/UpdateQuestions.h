#pragma once

#include "editing/Editor.h"

namespace repvolta {

// What a person is asked before an update: whether to update although the player is not there, or
// although there is too little room on it. Nothing is changed. False: the person does not want to.

/// For the workout in memory.
bool ConfirmUpdate(const Editor& editor);

/// For every workout of the list, once for all.
bool ConfirmUpdateOfAll(const Editor& editor);

}  // namespace repvolta
