#pragma once

#include <optional>

#include "clips/SoundLevel.h"
#include "clips/WordWatch.h"
#include "sound/Sound.h"

namespace repvolta {

/// What a room sounds like without the word, in dBFS.
struct RoomSound {
  double hum = kLowestLevel;    // of the mains, at 50 or 60 Hz and their multiples
  double noise = kLowestLevel;  // the rest, as far as it is not deeper than a voice
};

/// Listens to the sound before and behind the word, or to all of it when there is none. Nothing
/// when that is too short.
std::optional<RoomSound> RoomAround(const Sound& sound, const std::optional<SoundSpan>& word);

}  // namespace repvolta
