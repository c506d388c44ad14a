#include <QCoreApplication>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <numbers>
#include <stdexcept>

#include "app/Exercises.h"
#include "app/Settings.h"
#include "app/WorkoutFiles.h"
#include "base/File.h"
#include "base/FileNames.h"
#include "base/Numbers.h"
#include "base/ProgramFiles.h"
#include "base/WholeFile.h"
#include "mp3/GetPlayTime.h"
#include "mp3/RepvoltaMP3v2.h"
#include "platform/Clock.h"
#include "platform/QtChildProcesses.h"
#include "sound/WavFormat.h"
#include "update/MusicListing.h"

// Makes a sample program directory, including music, and shows the result of an update.

namespace repvolta {
namespace {

namespace fs = std::filesystem;

constexpr int kRate = 44100;
constexpr int kDaysSinceGrowth = 10;

struct Song {
  const char* name;
  int seconds;
  int key;  // semitones above A
};

constexpr Song kSongs[] = {{"Warm up", 75, 0}, {"Café au lait", 95, 3}, {"Hill & Valley", 80, 5},
                           {"走れ", 60, 7},    {"Long Run", 110, 8},    {"Cool down", 50, 10}};

/// The samples of an arpeggio: a note of a major chord every quarter of a second.
Bytes Arpeggio(const Song& song) {
  constexpr int kChord[] = {0, 4, 7, 12};
  constexpr int kNote = kRate / 4;
  const auto count = static_cast<std::size_t>(song.seconds) * kRate;
  Bytes samples(count * 2);
  for (std::size_t i = 0; i < count; ++i) {
    const int semitones = song.key + kChord[i / kNote % std::size(kChord)];
    const double frequency = 220 * std::exp2(semitones / 12.0);
    const double fade = 1 - static_cast<double>(i % kNote) / kNote;
    const double angle = 2 * std::numbers::pi * frequency * static_cast<double>(i) / kRate;
    const auto sample = static_cast<std::int16_t>(8000 * fade * std::sin(angle));
    StoreLittleEndian(std::span(samples).subspan(i * 2), static_cast<std::uint16_t>(sample));
  }
  return samples;
}

/// Encodes the song with the system's encoder, tagged as any music is.
void MakeSong(const Song& song, const fs::path& folder, ChildProcesses& processes) {
  const fs::path wav = folder / "song.wav";
  const Bytes samples = Arpeggio(song);
  Bytes file = WavHeader({.rate = kRate, .bits = 16, .channels = 1},
                         static_cast<std::uint32_t>(samples.size()));
  file.insert(file.end(), samples.begin(), samples.end());
  WriteWholeFile(wav, file);
  const std::string mp3 = folder / (std::string(song.name) + ".mp3");
  processes.Run({.program = "lame",
                 .arguments = {"--silent", "-b", "64", "--add-id3v2", "--tt", song.name, "--ta",
                               "The Sample Band", wav, mp3}});
  fs::remove(wav);
  if (!FileExists(mp3)) throw std::runtime_error(mp3 + " could not be encoded");
}

struct SampleSet {
  float first;
  float second;
};

/// Builds workouts one after the other.
class WorkoutMaker {
 public:
  WorkoutMaker(ProgramState& state, const fs::path& music) : state_(state), music_(music) {}

  WorkoutMaker& Begin(const std::string& name) {
    state_.Workout = {};
    state_.NumberOfExercises = 0;
    state_.WorkoutFileName = name + std::string(kWorkoutExtension);
    for (int i = 0; i < MaxExercises; ++i) {
      InitialiseExercise(state_.Workout[i], state_.Settings, clock_.Today());
    }
    return *this;
  }

  WorkoutMaker& Exercise(const char* name, SetTypeNumber type, Flag units,
                         std::initializer_list<SampleSet> sets) {
    ExerciseRecord& exercise = state_.Workout[state_.NumberOfExercises++];
    exercise.ExerciseName = name;
    exercise.SetType = type;
    exercise.Units = units;
    for (const SampleSet& set : sets) {
      exercise.SetValue1[exercise.NumberOfSets] = set.first;
      exercise.SetValue2[exercise.NumberOfSets++] = set.second;
    }
    return *this;
  }

  /// The first value of each set of the exercise grows once a week and is due.
  WorkoutMaker& Growing(float increment) {
    ExerciseRecord& exercise = Last();
    for (int set = 0; set < exercise.NumberOfSets; ++set) {
      exercise.SetIncrement1[set] = increment;
      exercise.SetFrequency1[set] = 7;
      exercise.NextUpdate1[set] = clock_.Today() - kDaysSinceGrowth;
    }
    return *this;
  }

  WorkoutMaker& Music(std::initializer_list<int> songs) {
    ExerciseRecord& exercise = Last();
    for (const int song : songs) {
      const std::string path = music_ / (std::string(kSongs[song].name) + ".mp3");
      exercise.MusicFilePlayTime[exercise.NumberOfMusicFiles] = GetPlayTime(path);
      exercise.MusicFile[exercise.NumberOfMusicFiles++] = path;
    }
    state_.CurrentExercise = static_cast<std::int16_t>(state_.NumberOfExercises - 1);
    CalculateExerciseMusicTime(state_);
    return *this;
  }

  WorkoutMaker& RandomMusic(std::int16_t seconds) {
    Last().RandomMusic = kTrue;
    Last().TargetExerciseTime = seconds;
    return *this;
  }

  void Save() { SaveWorkout(state_); }

 private:
  ExerciseRecord& Last() { return state_.Workout[state_.NumberOfExercises - 1]; }

  ProgramState& state_;
  fs::path music_;
  SystemClock clock_;
};

void MakeWorkouts(ProgramState& state, const fs::path& music) {
  WorkoutMaker maker(state, music);
  maker.Begin("Monday")
      .Exercise("Bench Press", kWeightAndReps, kFalse, {{50, 10}, {55, 8}, {60, 6}})
      .Growing(2.5F)
      .Music({0, 1})
      .Exercise("Treadmill Run", kDistanceAndSpeed, kTrue, {{3, 6.5F}})
      .RandomMusic(150)
      .Save();
  maker.Begin("Thursday")
      .Exercise("Squat", kWeightAndReps, kTrue, {{135, 10}, {185, 5}})
      .Growing(5)
      .Music({4})
      .Exercise("Stationary Bike", kLevelAndTime, kFalse, {{5, 10}, {6.5F, 5}})
      .RandomMusic(120)
      .Exercise("Dwarf Tossing", kUserDefined, kFalse, {{3, 2}})
      .Music({5})
      .Save();
}

void MakeSample(const fs::path& folder) {
  const fs::path music = folder / "music";
  fs::create_directories(music);
  QtChildProcesses processes;
  for (const Song& song : kSongs) MakeSong(song, music, processes);

  ProgramState state;
  state.ProgramDirectory = (folder / "program" / "").string();
  state.Settings.MusicPath = music.string();
  state.Settings.OutputPath = (folder / "player").string();
  state.Settings.DefaultExerciseTime = 5;
  state.Settings.VoiceVolume = 100;
  state.Settings.IncludeWeightValues = kTrue;
  SaveSettings(state);
  CompileMusicList(state.Settings.MusicPath.Text());
  MakeWorkouts(state, music);
}

void ShowFile(const fs::path& path) {
  if (path.extension() != ".mp3") {
    std::printf("  %s\n", path.filename().c_str());
    return;
  }
  cMP3ID3v2 tag;
  tag.SetFileName(path);
  std::printf("  %s  %s  %s\n", FormatTime(GetPlayTime(path)).c_str(), path.filename().c_str(),
              tag.Title().c_str());
}

void ShowPlayer(const fs::path& player) {
  std::vector<fs::path> paths{fs::recursive_directory_iterator(player), {}};
  std::sort(paths.begin(), paths.end());
  for (const fs::path& path : paths) {
    if (fs::is_directory(path)) {
      std::printf("%s/\n", path.filename().c_str());
    } else {
      ShowFile(path);
    }
  }
}

}  // namespace
}  // namespace repvolta

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  const std::string command = argc == 3 ? argv[1] : "";
  try {
    if (command == "make") {
      repvolta::MakeSample(std::filesystem::absolute(argv[2]));
    } else if (command == "show") {
      repvolta::ShowPlayer(argv[2]);
    } else {
      std::fputs("usage: repvolta-sample make FOLDER | show FOLDER\n", stderr);
      return 2;
    }
  } catch (const std::exception& error) {
    std::fprintf(stderr, "repvolta-sample: %s\n", error.what());
    return 1;
  }
  return 0;
}
