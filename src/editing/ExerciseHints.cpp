#include "editing/ExerciseHints.h"

#include <algorithm>

namespace repvolta {
namespace {

/// "An exercise has at most three sets: 1 more can be added."
std::string LimitText(const std::string& atMost, int limit, int count) {
  const int left = std::clamp(limit - count, 0, limit);
  return "An exercise has at most " + atMost + ": " + (left == 0 ? "no" : std::to_string(left)) +
         " more can be added.";
}

}  // namespace

std::string RandomMusicText(const ExerciseRecord& exercise) {
  return exercise.RandomMusic == kTrue ? "random music: on" : "random music: off";
}

std::string SetLimitText(const ExerciseRecord& exercise) {
  return LimitText("three sets", MaxSets, exercise.NumberOfSets);
}

std::string MusicLimitText(const ExerciseRecord& exercise) {
  return LimitText("ten music files", MaxMusicFiles, exercise.NumberOfMusicFiles);
}

}  // namespace repvolta
