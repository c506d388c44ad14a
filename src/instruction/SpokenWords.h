#pragma once

#include <string>
#include <vector>

#include "app/Records.h"

namespace repvolta {

/// What one recorded clip says: the name of an exercise, or a word, whose text is the clip's file
/// name without folder and extension ("100", "reps").
struct Clip {
  enum class Kind { kName, kWord };

  Kind kind;
  std::string text;

  bool operator==(const Clip&) const = default;
};

/// The words that say a number, and what they leave unsaid of it.
struct NumberWords {
  std::vector<std::string> words;
  float rest;
};

/// Says up to 9999 and one decimal digit. Zero, negative values and values that are no numbers have
/// no words (quirk 17).
NumberWords WordsOfNumber(float value);

/// What is heard of an exercise, in this order. Where a set cannot be said, the clips end before
/// the value that is missing, and `failure` says why; it is empty otherwise.
struct SpokenInstruction {
  std::vector<Clip> clips;
  std::string failure;
};

enum class SetValues { kSaid, kLeftOut };

/// The trimmed name, the number of sets and, where `values` asks for them, the values of each set.
/// More sets than slots are a failure once the sets that exist are said.
SpokenInstruction ClipsOfInstruction(const ExerciseRecord& exercise, SetValues values);

}  // namespace repvolta
