#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "app/OptionLines.h"
#include "app/Records.h"
#include "base/File.h"

namespace repvolta {

/// How SpeakToFile speaks: set up from the settings at the start, then changed by what is chosen.
struct VoiceState {
  std::int16_t Voice = 0;    // position in VoiceCB
  std::int16_t Rate = 0;     // -10 .. 10
  std::int16_t Volume = 70;  // 0 .. 100
  std::int16_t Format = 14;  // position in FormatCB: SAFT16kHz16BitMono
};

/// A workout file at the time it was last loaded or saved.
struct KnownWorkoutFile {
  std::string name;  // WorkoutFileName
  std::string file;  // its name in the folder, which may differ in case
  FileStamp stamp;
};

/// The content of the settings file when it was last loaded or saved.
struct KnownSettingsFile {
  SettingsRecord record;
  std::optional<FileStamp> stamp;  // none: there was no file
};

/// The content of the options file when it was last loaded or saved.
struct KnownOptionsFile {
  OptionLines lines;
  std::optional<FileStamp> stamp;  // none: there was no file
};

/// What is known of the versions of workouts that were kept in this run.
struct KeptVersions {
  std::string changed;  // the workout whose file was kept before a change
  double day = 0;       // of that change
  bool isFailureTold = false;
};

/// Everything that the program holds in memory; one object for the whole run.
struct ProgramState {
  ExerciseSlots Workout;
  SettingsRecord Settings;
  OptionLines Options;
  VoiceState Voice;
  KnownSettingsFile KnownSettings;
  bool SettingsAreUnread = false;  // the file has settings that could not be read
  KnownOptionsFile KnownOptions;
  bool OptionsAreUnread = false;  // the file has options that could not be read

  std::int16_t NumberOfExercises = 0;  // slots in use in Workout
  std::int16_t CurrentExercise = 0;    // the slot that is shown and edited
  std::int16_t NumberOfWorkouts = 0;
  std::vector<std::string> WorkoutNames;  // what WorkoutDropBox lists: file names with ".RPV"
  std::string WorkoutFileName;            // of the workout in memory; empty: none
  std::optional<KnownWorkoutFile> KnownFile;
  KeptVersions Kept;
  bool RestoreIsPending = false;      // files of a backup are not in place; nothing may be saved
  std::int32_t RandomMusicFiles = 0;  // lines of "musiclist.txt" as last counted

  bool ScreenUpdating = false;       // the program itself fills the controls
  bool UpdatingAllWorkouts = false;  // not saved
  std::string ProgramDirectory;      // ends with the separator
};

/// Makes the program directory the current one. Throws FileError, also while RestoreIsPending.
void MakeProgramDirectoryCurrent(const ProgramState& state);

}  // namespace repvolta
