#pragma once

#include <string>

#include "app/Records.h"

namespace repvolta {

/// `text` as a field that holds a path. Throws std::length_error when the field would cut or change
/// it.
FixedText<256> PathField(const std::string& text);

}  // namespace repvolta
