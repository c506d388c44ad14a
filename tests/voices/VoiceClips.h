#pragma once

#include <string>

#include "base/Bytes.h"

#include "support/ClipBytes.h"
#include "support/TemporaryFolder.h"

namespace repvolta {

/// A clip in the clips' format that differs from those of other letters.
inline Bytes ClipOf(char letter) { return ClipBytes(Bytes(400, static_cast<Byte>(letter))); }

inline void PutClip(const std::string& path, char letter) { PutFile(path, ClipOf(letter)); }

}  // namespace repvolta
