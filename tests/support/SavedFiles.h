#pragma once

#include <filesystem>
#include <string>

#include "app/RecordFormat.h"
#include "app/Settings.h"
#include "base/ProgramFiles.h"

#include "support/TemporaryFolder.h"

namespace repvolta {

/// The present content of a workout file. Here and below, the current directory is the program
/// directory.
inline ExerciseSlots Saved(const std::string& fileName = "Monday.RPV") {
  return DecodeWorkout(GetFile("workouts/" + fileName));
}

inline SettingsRecord SavedSettings() { return DecodeSettings(GetFile(kSettingsFile)); }

/// From now on no workout can be saved.
inline void BlockWorkouts() {
  std::filesystem::rename("workouts", "workouts before");
  PutFile("workouts", "a file where the folder was");
}

/// From now on the settings cannot be saved.
inline void BlockSettings() {
  std::filesystem::remove(kSettingsFile);
  PutFile(std::string(kSettingsFile) + "/in the way", "");
}

}  // namespace repvolta
