#pragma once

#include "editing/Editor.h"

namespace repvolta {

// Both ask for a file and write it all or nothing; a message says what it holds and which workouts
// were left out, because they are damaged or cannot be read. They throw FileError.

/// The workout in memory.
void ExportCsv(const Editor& editor);

/// All workouts; the one in memory as it is there.
void ExportAllCsv(const Editor& editor);

}  // namespace repvolta
