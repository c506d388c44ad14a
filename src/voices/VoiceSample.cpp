#include "voices/VoiceSample.h"

#include "clips/ClipLists.h"
#include "clips/ClipSound.h"
#include "sound/WavReader.h"

namespace repvolta {
namespace {

constexpr const char* kSentence[] = {"3.wav",   "sets.wav", "50.wav",  "kilograms.wav",
                                     "for.wav", "10.wav",   "reps.wav"};

/// Adds a clip; one that no update could join is left out.
void Join(const Bytes& file, Sound& sentence) {
  try {
    const Sound word = ConvertRate(ReadWav(file), kClipFormat.rate);
    sentence.samples.insert(sentence.samples.end(), word.samples.begin(), word.samples.end());
  } catch (const WavError&) {
    // The check of the voice names it.
  }
}

}  // namespace

Bytes SampleOfVoice(const VoicesHere& here, const std::string& voice) {
  const VoiceClips clips = ClipsOfVoice(here, voice, ClipsToWrite::kAll);
  Sound sentence{.rate = kClipFormat.rate, .samples = {}};
  for (const char* word : kSentence) {
    const auto clip = clips.find(word);
    if (clip != clips.end()) Join(clip->second, sentence);
  }
  if (sentence.samples.empty()) throw ClipError("The voice has no clip that can be heard.");
  return EncodeWav(sentence, kClipFormat);
}

}  // namespace repvolta
