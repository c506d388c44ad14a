#include "clips/TakeJudgement.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <span>
#include <utility>

#include "clips/RoomSound.h"

namespace repvolta {
namespace {

struct Advice {
  TakeFault fault;
  const char* happened;
  const char* remedy;
};

constexpr std::array kAdvice = {
    Advice{TakeFault::kNoSound, "The microphone gives no sound at all.",
           "See that it is switched on and not muted, or choose another one."},
    Advice{TakeFault::kNothingHeard, "No word was heard.",
           "Speak soon after you start, and closer to the microphone."},
    Advice{TakeFault::kCutOff, "The beginning of the word is missing.",
           "Start first, wait a moment, then speak."},
    Advice{TakeFault::kTooLong, "The recording did not come to an end.",
           "Say only these words, and let nothing else be heard for a moment behind them."},
    Advice{TakeFault::kClipped, "It was too loud, so that it is distorted.",
           "Move away from the microphone, or turn it down in the settings of the desktop."},
    Advice{TakeFault::kTooQuiet, "It was very quiet.",
           "Speak closer to the microphone, or turn it up in the settings of the desktop."},
    Advice{TakeFault::kHum, "A hum of the mains is heard behind the word.",
           "Move the microphone and its cable away from power supplies, or use another one."},
    Advice{TakeFault::kNoisyRoom, "The room is too noisy.",
           "Close the windows and switch off what makes a noise, or speak closer to the "
           "microphone."},
};

constexpr float kFullScale = 32766.5F / 32768.0F;
constexpr int kSamplesOfAClippedPeak = 3;  // in a row

/// A word that is quieter would be raised by more than 30 dB, and with it the noise of a common
/// input, to where it is heard.
constexpr double kQuietestPeak = -32;  // dBFS
/// A noise that is closer to the word than 33 dB is heard in the clip: a recogniser understands 99
/// % of the words at 40 dB, as without any noise, 97 % at 35 and 86 % at 30.
constexpr double kNoiseBelowWord = 33;
/// A hum does less harm: at 23 dB a recogniser still understands all of that. But it comes and goes
/// with each word, which people hear.
constexpr double kHumBelowWord = 25;
/// Without a word, what is louder may be the reason why none was heard.
constexpr double kLoudRoom = -45;     // dBFS
constexpr double kAtTheStart = 0.03;  // seconds

bool IsClipped(std::span<const float> samples) {
  int row = 0;
  return std::ranges::any_of(samples, [&row](float sample) {
    row = std::abs(sample) >= kFullScale ? row + 1 : 0;
    return row == kSamplesOfAClippedPeak;
  });
}

}  // namespace

TakeAdvice AdviceOn(TakeFault fault) {
  const auto* advice = std::ranges::find(kAdvice, fault, &Advice::fault);
  return {advice->happened, advice->remedy};
}

TakeJudgement Judge(const Sound& sound, const std::optional<SoundSpan>& word, TakeEnd end) {
  TakeJudgement judgement;
  if (word) {
    judgement.hasWord = true;
    judgement.word =
        LevelOf(std::span(sound.samples).subspan(word->begin, word->end - word->begin));
  }
  const RoomSound room = RoomAround(sound, word).value_or(RoomSound{});
  judgement.hum = room.hum;
  judgement.noise = room.noise;
  const double loudestHum = word ? judgement.word.rms - kHumBelowWord : kLoudRoom;
  const double loudestNoise = word ? judgement.word.rms - kNoiseBelowWord : kLoudRoom;
  const std::array<std::pair<TakeFault, bool>, kAdvice.size()> faults = {{
      {TakeFault::kNoSound, end == TakeEnd::kNoSound},
      {TakeFault::kNothingHeard, !word && end != TakeEnd::kNoSound},
      {TakeFault::kCutOff, word && static_cast<double>(word->begin) < kAtTheStart * sound.rate},
      {TakeFault::kTooLong, end == TakeEnd::kTooLong},
      {TakeFault::kClipped, IsClipped(sound.samples)},
      {TakeFault::kTooQuiet, word && judgement.word.peak < kQuietestPeak},
      {TakeFault::kHum, room.hum > loudestHum},
      {TakeFault::kNoisyRoom, room.noise > loudestNoise},
  }};
  for (const auto& [fault, isThere] : faults) {
    if (isThere) judgement.faults.push_back(fault);
  }
  return judgement;
}

}  // namespace repvolta
