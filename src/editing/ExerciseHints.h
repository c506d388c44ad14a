#pragma once

#include <string>

#include "app/Records.h"

namespace repvolta {

// What the exercise tab says beside its controls, from the record alone.

/// Whether the next update draws music for the exercise: "random music: on", "random music: off".
std::string RandomMusicText(const ExerciseRecord& exercise);

/// How many sets an exercise has at most, and how many can still be added.
std::string SetLimitText(const ExerciseRecord& exercise);

/// The same of music files.
std::string MusicLimitText(const ExerciseRecord& exercise);

}  // namespace repvolta
