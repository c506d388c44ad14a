#pragma once

#include <string>

#include "app/Records.h"

namespace repvolta {

/// `text` for a field that holds a path. Throws std::length_error when it would not come back
/// whole.
FixedText<256> PathField(const std::string& text);

}  // namespace repvolta
