#pragma once

#include <string>

#include "base/Bytes.h"

namespace repvolta {

/// The loudness in LUFS of the word clip in the middle of a folder of clips: what a new clip has to
/// be like. kClipLoudness when too few of its words can be measured. Throws FileError.
double LoudnessOfVoice(const std::string& folder);

/// The folder of the voice that a clip's path belongs to: the folder of the clip, or the one above
/// when that is the folder of the names.
std::string VoiceOfClip(const std::string& path);

/// A clip's file with its sound louder by `difference` LU, or quieter, with limited peaks. The very
/// bytes when there is no difference, nothing can be heard, or they are no clip.
Bytes LouderClip(const Bytes& clip, double difference);

}  // namespace repvolta
