#pragma once

#include <cstdint>
#include <span>

#include "clips/TakeJudgement.h"
#include "clips/WordWatch.h"
#include "sound/Sound.h"

namespace repvolta {

/// One attempt to record a word: takes what the microphone hears from the moment on at which
/// somebody starts it, finds the end of the word by itself, and judges it. Holds at most 15 seconds
/// of sound.
class Take {
 public:
  explicit Take(std::uint32_t rate);

  /// What is heard; without effect when the take has ended.
  void Add(std::span<const float> samples);

  /// Ends the take at once; what has been said until then counts.
  void End() { watch_.Stop(); }

  TakeStage Stage() const { return watch_.Stage(); }
  bool HasEnded() const { return Stage() == TakeStage::kEnded; }

  /// Of a take that has ended.
  TakeJudgement Judgement() const;

  /// Of a take whose judgement has a word: the word with a moment of the room around it, for
  /// ClipOf.
  Sound Recording() const;

 private:
  Sound sound_;
  WordWatch watch_;
};

}  // namespace repvolta
