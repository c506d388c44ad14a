#pragma once

#include <optional>
#include <span>
#include <string>

#include "clips/VoiceCheck.h"

namespace repvolta {

/// What one clip of a voice is by itself.
struct MeasuredClip {
  std::string file;  // below the folder of the voice
  std::optional<ClipFinding> finding;
  std::optional<double> loudness;  // LUFS; nothing for a clip that says nothing
};

/// Looks at the clip `name` of the voice in `folder`. Throws FileError when the folder cannot be
/// searched.
MeasuredClip MeasureClip(const std::string& folder, const std::string& name);

/// The loudness of the clip in the middle; minus infinity when none can be heard.
double MiddleLoudness(std::span<const MeasuredClip> clips);

/// Judges a clip beside the others of its voice, of which the one in the middle has the loudness
/// `middle`.
std::optional<ClipFinding> FindingBeside(const MeasuredClip& clip, double middle);

}  // namespace repvolta
