#pragma once

#include "editing/Editor.h"

namespace repvolta {

/// Lets the person choose a kept version of a workout, also of a deleted one. The workout as it is
/// now is kept first; where it cannot be, the person is asked whether to go on. Then the file gets
/// the bytes of the version, all or nothing, as a step that can be undone, and is loaded and
/// shown. Throws FileError.
void RestoreVersion(Editor& editor);

}  // namespace repvolta
