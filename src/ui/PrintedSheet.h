#pragma once

#include <QPageSize>
#include <QWidget>

#include "base/Bytes.h"
#include "editing/SheetCommands.h"
#include "editing/WorkoutSheet.h"

class QPrinter;

namespace repvolta {

/// The paper of the person's country: Letter, or A4.
QPageSize UsualPaper();

/// The sheet as a PDF file.
Bytes SheetAsPdf(const WorkoutSheet& sheet, const QPageSize& paper);

/// Draws the pages that the printer was told to print. Throws std::runtime_error.
void DrawOnPrinter(const WorkoutSheet& sheet, QPrinter& printer);

/// Asks for a printer and prints the sheet. Throws std::runtime_error.
Printing PrintSheet(const WorkoutSheet& sheet, QWidget* owner);

}  // namespace repvolta
