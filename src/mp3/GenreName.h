#pragma once

#include <string>

#include "base/Bytes.h"

namespace repvolta {

/// The name of an ID3 genre number; "" for 123 and for numbers above 147.
std::string GenreName(Byte number);

}  // namespace repvolta
