#include "instruction/VoiceNumber.h"

#include "instruction/Clips.h"
#include "instruction/SpokenWords.h"

namespace repvolta {

void GenerateVoiceNumber(float& value, const std::string& target, ProgressLog& log) {
  const NumberWords number = WordsOfNumber(value);
  for (const std::string& word : number.words) AppendClip(target, word, log);
  value = number.rest;
}

}  // namespace repvolta
