#pragma once

#include <string>

#include "base/Bytes.h"

namespace repvolta {

/// The name of a numbered genre of ID3 tags; "" for 123 and for all above 147.
std::string GenreName(Byte number);

}  // namespace repvolta
