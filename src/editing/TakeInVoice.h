#pragma once

#include <string>

#include "editing/VoiceServices.h"

namespace repvolta {

// Both ask for a folder or a ZIP file with clips, judge it, offer to make clips of sounds in other
// formats, ask for a name, say what the voice would lack, and take it in, all or nothing. They
// return its name; "" when the person cancels or stops it. They throw FileError when there is no
// new voice.

std::string TakeInVoiceFolder(const VoiceServices& services);
std::string TakeInVoiceArchive(const VoiceServices& services);

}  // namespace repvolta
