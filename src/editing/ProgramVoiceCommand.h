#pragma once

#include <string>
#include <vector>

#include "editing/VoiceServices.h"

namespace repvolta {

/// "Back to the Program's Voice": the program's own clips take the places of these ("300.wav",
/// "exercise/Squat.WAV"), as loud as the voice in use. For names of which the program has none it
/// asks whether their clips are to be removed, so that the next update speaks them anew. Recordings
/// that lose their place are kept as a whole voice, and a message says so. Returns false when
/// nothing was changed. Throws std::runtime_error, also when the program's own clips are not here.
bool BackToProgramVoice(const VoiceServices& services, const std::vector<std::string>& clips);

}  // namespace repvolta
