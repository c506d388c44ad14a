#pragma once

#include <string>

#include "voices/ChangeOfVoice.h"
#include "voices/ReadVoice.h"

namespace repvolta {

// Both give clips to others, byte for byte, all or nothing: after a failure or when `watch` throws,
// nothing is left behind. They throw FileError.

/// Into the new folder `folder`. Throws, and writes nothing, when there is something of this name.
void WriteVoiceFolder(const VoiceClips& clips, const std::string& folder, const VoiceWatch& watch);

/// Into the ZIP file `file`, which is replaced; the clips lie in a folder there that is named after
/// the voice. What is written is read again and compared. Returns why it may not survive a power
/// cut, "" when it will.
std::string WriteVoiceArchive(const VoiceClips& clips, const std::string& voice,
                              const std::string& file, const VoiceWatch& watch);

}  // namespace repvolta
