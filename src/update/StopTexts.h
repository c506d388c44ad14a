#pragma once

#include <string>
#include <vector>

namespace repvolta {

// The lines of an update that the person has stopped.

/// How many of the files of a workout are on the player, and of which exercises some are missing.
std::string StoppedText(std::size_t there, std::size_t planned,
                        const std::vector<std::string>& exercises);

/// The update was stopped before the workout was saved: its values are those of before.
std::string StoppedUnchangedText(const std::string& workout);

/// The workouts that were not begun; their folders on the player and their values are as before.
std::string NotUpdatedText(const std::vector<std::string>& workouts);

}  // namespace repvolta
