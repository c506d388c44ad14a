#pragma once

#include <string>

#include "editing/VoiceServices.h"

namespace repvolta {

/// Asks which clips of a voice, "" for the program's own, to give to others, as a ZIP file or a
/// folder, and where; says what is not as it should be in them before, and what was written
/// afterwards. Does nothing when the person cancels or stops it. Throws FileError when nothing was
/// written.
void WriteOutVoice(const VoiceServices& services, const std::string& voice);

}  // namespace repvolta
