#pragma once

#include "editing/Editor.h"
#include "editing/Preview.h"

namespace repvolta {

/// Shows what an update of the workout in memory would do, and then the place that the person wants
/// to see. Neither the workout nor any file is changed. Without a workout it does nothing. The
/// update that is wanted, and the focus, are left to the caller. Throws FileError.
PreviewOutcome PreviewUpdate(Editor& editor);

/// Shows the place and selects the exercise and the row that it names.
void ShowPlace(Editor& editor, const PreviewPlace& place);

}  // namespace repvolta
