#pragma once

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "update/UpdateDriver.h"

#include "support/ClipBytes.h"
#include "support/ProgramFixture.h"
#include "support/SongBytes.h"

namespace repvolta {

/// The workout "Monday" of a program directory with an encoder that copies the WAV file behind the
/// header of a frame, and without any clips but the names'.
class UpdateFixture : public ProgramFixture {
 protected:
  UpdateFixture() {
    state.WorkoutFileName = "Monday.RPV";
    state.Settings.OutputPath = Full("player");
    state.Settings.MusicPath = Full("music");
    state.Settings.IncludeWeightValues = kTrue;
    std::filesystem::create_directory("player");
    PutFile("lame.exe", "");
    PutFile("voice/sets.wav", ClipBytes(Bytes(10, '+')));
    processes.run = [](const ChildCommand& command) {
      if (!std::filesystem::exists(command.arguments[1])) return;
      Bytes mp3 = SongBytes(1);
      const Bytes wav = GetFile(command.arguments[1]);
      mp3.insert(mp3.end(), wav.begin(), wav.end());
      PutFile(command.arguments[2], mp3);
    };
  }

  std::string Full(const std::string& path) const { return folder.Path() + path; }

  ExerciseRecord& AddNamed(const std::string& name) {
    PutFile("voice/exercise/" + name + ".WAV", ClipBytes(Bytes(20, '#')));
    return AddExercise(name);
  }

  void AddSong(ExerciseRecord& exercise, const std::string& path) {
    exercise.MusicFile[exercise.NumberOfMusicFiles++] = path;
  }

  /// While the instruction is encoded, a folder that is not empty takes the place of the next copy.
  void PutFolderInTheWay(const std::string& copy) {
    processes.run = [encode = processes.run, copy](const ChildCommand& command) {
      encode(command);
      std::filesystem::create_directories(copy + "/in the way");
    };
  }

  std::vector<std::string> PlayerFiles() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator("player/Monday")) {
      names.push_back(entry.path().filename());
    }
    std::sort(names.begin(), names.end());
    return names;
  }

  std::string PlayList() const { return GetTextFile("player/Monday/Monday.M3U"); }

  void Update() { UpdateCurrentWorkout(program, run, run); }
};

}  // namespace repvolta
