#include "update/WhatToKeep.h"

#include <cstdlib>

#include "app/WorkoutFiles.h"
#include "base/ProgramFiles.h"

namespace repvolta {

Keepsakes WhatToKeep(const ProgramState& state) {
  const char* home = std::getenv("HOME");
  return {.folders = {state.Settings.MusicPath.Trimmed(), state.ProgramDirectory,
                      home == nullptr ? "" : home},
          .songs = SongsOf(state.Workout),
          .songList = kMusicList,
          .otherSongs = SongsOfAllWorkoutFiles,
          .workouts = state.WorkoutNames};
}

}  // namespace repvolta
