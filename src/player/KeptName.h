#pragma once

#include <string>

#include "base/FolderHandle.h"

namespace repvolta {

/// False when the disk has given another name to the entry that was just made as `name`: those of
/// players drop dots and blanks at the end without a word, some also all from a control character
/// on. A disk that cannot tell is believed.
bool IsKeptAs(const FolderHandle& folder, const std::string& name);

}  // namespace repvolta
