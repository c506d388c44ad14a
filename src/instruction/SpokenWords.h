#pragma once

#include <string>
#include <vector>

#include "app/Records.h"

namespace repvolta {

/// One recorded clip: the name of an exercise, or a word, whose text is the clip's file name
/// without folder and extension ("100", "reps").
struct Clip {
  enum class Kind { kName, kWord };

  Kind kind;
  std::string text;

  bool operator==(const Clip&) const = default;
};

/// The words that say a number, and the part of the number that they leave unsaid.
struct NumberWords {
  std::vector<std::string> words;
  float rest;
};

/// Says numbers up to 9999 with one decimal digit. Zero, negative values and NaN have no words
/// (quirk 17).
NumberWords WordsOfNumber(float value);

/// The clips of an exercise, in the order in which they are heard. If a set cannot be said, they
/// end before the missing value and `failure` says why; otherwise `failure` is empty.
struct SpokenInstruction {
  std::vector<Clip> clips;
  std::string failure;
};

enum class SetValues { kSaid, kLeftOut };

/// The trimmed name, the number of sets and, if `values` asks for them, the values of each set.
/// With more sets than slots, all slots are said before the failure.
SpokenInstruction ClipsOfInstruction(const ExerciseRecord& exercise, SetValues values);

}  // namespace repvolta
