#pragma once

#include <functional>

#include "base/Bytes.h"
#include "editing/Editor.h"
#include "editing/WorkoutSheet.h"

namespace repvolta {

// Both do nothing without a workout; a message says why a workout has no sheet.

enum class Printing { kSent, kCancelled, kNoPrinter };

/// `print` asks for a printer and draws. Throws what `print` throws.
void PrintWorkout(const Editor& editor, const std::function<Printing(const WorkoutSheet&)>& print);

/// Asks for a file and writes what `pdfOf` draws, all or nothing. Throws FileError and what `pdfOf`
/// throws.
void SaveWorkoutAsPdf(const Editor& editor, const std::function<Bytes(const WorkoutSheet&)>& pdfOf);

}  // namespace repvolta
