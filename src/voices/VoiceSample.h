#pragma once

#include <string>

#include "base/Bytes.h"
#include "voices/ChangeOfVoice.h"

namespace repvolta {

/// "Three sets, fifty kilograms for ten reps", said by a voice; for words that it lacks the
/// program's are joined. A WAV file in the clips' format. Throws ClipError when not one of the
/// words can be said, FileError.
Bytes SampleOfVoice(const VoicesHere& here, const std::string& voice);

}  // namespace repvolta
