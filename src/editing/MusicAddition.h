#pragma once

#include <functional>
#include <string>
#include <vector>

#include "app/ProgramState.h"
#include "editing/FindMusic.h"

namespace repvolta {

// Changes of the current exercise's music in memory. Nothing is saved.

/// Changes the current exercise and sums its play times. If either throws, the exercise is
/// unchanged.
void ChangeMusic(ProgramState& state, const std::function<void(ExerciseRecord&)>& change);

/// Adds a song after the others. Throws what GetPlayTime throws, std::overflow_error when the total
/// time does not fit and std::length_error when the path does not; then nothing is added.
void AddMusicFile(ProgramState& state, const std::string& path);

/// What became of songs that were to be added.
struct MusicAddition {
  std::vector<std::string> added;
  std::vector<std::string> noRoom;    // the list was full
  std::vector<std::string> noMusic;   // no MP3 file, or a folder without one
  std::vector<std::string> failures;  // a line for each: what failed and why

  bool operator==(const MusicAddition&) const = default;
};

/// Adds each of the songs as AddMusicFile does, in their order, until the list is full.
MusicAddition AddFoundMusic(ProgramState& state, const FoundMusic& found);

/// What was not added, and why, as a message; empty when there is nothing to tell. Long lists are
/// cut.
std::string NotAddedText(const MusicAddition& addition);

}  // namespace repvolta
