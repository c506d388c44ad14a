#pragma once

#include <filesystem>
#include <gtest/gtest.h>
#include <map>

#include "app/ProgramState.h"
#include "app/Settings.h"
#include "app/WorkoutFiles.h"

#include "support/RunProgram.h"
#include "support/SongBytes.h"
#include "support/TemporaryFolder.h"

namespace repvolta {

/// A portable program directory "program" with the built program, its clips and the real encoder;
/// beside it the folders "music" and "player", which the settings name.
class PortableProgram : public testing::Test {
 protected:
  PortableProgram() {
    namespace fs = std::filesystem;
    const std::string bin = REPVOLTA_BIN "/";
    fs::create_directories("program/workouts");
    fs::create_directories("music");
    fs::create_directories("player");
    fs::copy_file(bin + "repvolta-update", "program/repvolta-update");
    LinkAll(bin + "voice/", "program/voice/");
    fs::copy_symlink(bin + "lame.exe", "program/lame.exe");

    state.ProgramDirectory = Full("program/");
    state.Settings.MusicPath = Full("music");
    state.Settings.OutputPath = Full("player");
    state.Settings.DefaultExerciseTime = 5;
    state.Settings.VoiceVolume = 100;
    state.Settings.IncludeWeightValues = kTrue;
    Save();
  }

  /// Creates the folders of `source` in `target` and links to all its files.
  static void LinkAll(const std::string& source, const std::string& target) {
    std::filesystem::create_directories(target);
    for (const auto& entry : std::filesystem::directory_iterator(source)) {
      const std::string name = entry.path().filename();
      if (entry.is_directory()) {
        LinkAll(source + name + "/", target + name + "/");
      } else {
        std::filesystem::create_symlink(entry.path(), target + name);
      }
    }
  }

  std::string Full(const std::string& path) const { return folder.Path() + path; }

  void Save() {
    SaveSettings(state);
    std::filesystem::current_path(folder.Path());
  }

  /// Begins a workout with this name and without exercises.
  void Begin(const std::string& name) {
    state.Workout = {};
    state.NumberOfExercises = 0;
    state.WorkoutFileName = name + ".RPV";
  }

  ExerciseRecord& AddExercise(const std::string& name) {
    ExerciseRecord& exercise = state.Workout[state.NumberOfExercises++];
    exercise.ExerciseName = name;
    return exercise;
  }

  void SaveBegun() {
    SaveWorkout(state);
    std::filesystem::current_path(folder.Path());
  }

  /// A saved workout with one exercise.
  void AddWorkout(const std::string& name, const std::string& exercise) {
    Begin(name);
    AddExercise(exercise);
    SaveBegun();
  }

  ProgramRun Update(const std::vector<std::string>& operands = {},
                    const Environment& environment = {}) {
    return RunProgram("program/repvolta-update", operands, environment);
  }

  TemporaryFolder folder;
  ProgramState state;
};

/// The content of a folder: paths, sizes and the bytes of regular files.
inline std::map<std::string, std::string> Snapshot(const std::string& root) {
  std::map<std::string, std::string> files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
    files[entry.path()] = entry.is_regular_file() ? GetTextFile(entry.path()) : "";
  }
  return files;
}

}  // namespace repvolta
