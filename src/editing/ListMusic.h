#pragma once

#include "editing/Editor.h"

namespace repvolta {

/// Compiles the list of random music below the music path while the please-wait window is shown.
/// Throws FileError, UpdateStopped.
void ListMusic(const Editor& editor);

}  // namespace repvolta
