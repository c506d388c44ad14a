#pragma once

#include "base/File.h"
#include "base/WholeFile.h"

namespace repvolta {

/// Appends the bytes of `from`, from `offset` to its end, a block at a time. Throws FileError.
void CopyRest(const File& from, std::uint64_t offset, WholeFileWriter& to);

}  // namespace repvolta
