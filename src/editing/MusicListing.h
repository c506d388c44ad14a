#pragma once

#include "editing/Editor.h"

namespace repvolta {

/// Compiles the list of random music below the music path, with the please-wait window shown
/// meanwhile. Throws FileError, UpdateStopped.
void ListMusic(const Editor& editor);

}  // namespace repvolta
