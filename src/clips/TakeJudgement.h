#pragma once

#include <optional>
#include <string>
#include <vector>

#include "clips/SoundLevel.h"
#include "clips/WordWatch.h"
#include "sound/Sound.h"

namespace repvolta {

/// What can be wrong with a take.
enum class TakeFault {
  kNoSound,       // not even the noise of a room: muted or switched off
  kNothingHeard,  // no word in the time for it
  kCutOff,        // the word was already sounding at the start
  kTooLong,
  kClipped,
  kTooQuiet,
  kHum,  // of the mains
  kNoisyRoom,
};

/// Two sentences for the user.
struct TakeAdvice {
  std::string happened;
  std::string remedy;
};

TakeAdvice AdviceOn(TakeFault fault);

/// What was heard in a take.
struct TakeJudgement {
  std::vector<TakeFault> faults;  // in the order of their list; none when all is well
  bool hasWord = false;           // a clip can be made of it
  SoundLevel word;
  double hum = kLowestLevel;    // dBFS, of the mains, beside the word
  double noise = kLowestLevel;  // dBFS, of the room without the hum
};

/// Judges all that was heard in a take.
TakeJudgement Judge(const Sound& sound, const std::optional<SoundSpan>& word, TakeEnd end);

}  // namespace repvolta
