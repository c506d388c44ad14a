#pragma once

#include <cstddef>
#include <optional>

#include "sound/SoundSource.h"

namespace repvolta {

inline constexpr double kSecondsBeforeWord = 0.010;
inline constexpr double kSecondsBehindWord = 0.060;
inline constexpr float kSilence = 1e-4F;  // the peak below which nothing is heard

/// The word in a recording.
struct Word {
  std::size_t begin;  // in samples at the clips' rate
  std::size_t end;
  float offset;  // of the whole recording, from zero
};

/// Nothing when the recording is silent. Holds a small part of what the source holds.
std::optional<Word> FindWord(const SoundSource& recording);

double Seconds(const Word& word);

/// The word at the clips' rate, with exactly a clip's silence before and after it, faded out to a
/// last sample of zero.
Sound CutWord(const SoundSource& recording, const Word& word);

/// A clip that says nothing: the silence before and after a word.
Sound WordlessClip();

/// FindWord and CutWord in one. Empty when the recording is silent.
Sound TrimToWord(const Sound& recording);

}  // namespace repvolta
