#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "app/ProgressLog.h"
#include "instruction/SpokenWords.h"

namespace repvolta {

/// A clip and the words by which a person asks for it.
struct SayableClip {
  Clip clip;
  std::string words;  // "three hundred", "Bench Press"

  bool operator==(const SayableClip&) const = default;
};

/// A sentence as clips.
struct SpokenSentence {
  std::vector<Clip> clips;
  std::vector<std::string> unsaid;  // what there is no clip for, as it was typed

  bool operator==(const SpokenSentence&) const = default;
};

/// Finds the clips for a sentence that a person typed: "Squat, three sets, 52.5 kilograms". Case
/// and punctuation do not count; where several clips begin alike, the longest is taken. Figures are
/// said as the update says them; thousands may have a comma, and a decimal comma is a point.
SpokenSentence ClipsOfSentence(std::string_view sentence, const std::vector<SayableClip>& sayable);

/// Makes the WAV file `target` of the clips, as an update joins them. The program directory must be
/// current. Logs words that are missing. Throws FileError when the first one cannot be read.
void JoinSentence(const std::vector<Clip>& clips, const std::string& target, ProgressLog& log);

}  // namespace repvolta
