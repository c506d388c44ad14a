#include <benchmark/benchmark.h>
#include <filesystem>
#include <memory>

#include "app/Exercises.h"
#include "app/WorkoutFiles.h"
#include "base/File.h"
#include "base/FileNames.h"
#include "base/ProgramFiles.h"
#include "instruction/Clips.h"
#include "instruction/VoiceInstruction.h"
#include "mp3/GetPlayTime.h"
#include "platform/QtChildProcesses.h"
#include "speech/EngineSpeech.h"
#include "update/Encoder.h"
#include "update/PlanUpdate.h"
#include "update/ProcessMP3tag.h"
#include "update/UpdateDriver.h"

#include "NobodyWatching.h"
#include "Operations.h"
#include "Suite.h"
#include "limits/Limits.h"

namespace repvolta::bench {
namespace {

namespace fs = std::filesystem;
using Files = std::vector<std::string>;

constexpr int kPlanRounds = 50;  // a single plan takes less than a millisecond
constexpr const char* kSpokenName = "A name of my own";

/// A program directory with a workout of 5 exercises, 3 sets and 10 songs each; one exercise's name
/// is spoken by an engine. The directory is the current folder.
class Workout {
 public:
  explicit Workout(const Places& places)
      : root_(places.work + "/program/"), songs_(SongsOf(places)) {
    fs::create_directories(root_ + "workouts");
    fs::copy(places.programs + "/voice", root_ + "voice", fs::copy_options::recursive);
    fs::create_symlink("/usr/bin/lame", root_ + kEncoder);
    fs::create_directory(root_ + "out");
    state_.ProgramDirectory = root_;
    state_.WorkoutFileName = "Monday.RPV";
    state_.Settings.OutputPath = root_ + "out";
    state_.Settings.IncludeWeightValues = kTrue;
    AddExercises();
    MakeProgramDirectoryCurrent(state_);
    SaveWorkout(state_);
    MakeInstructions();
  }

  void Enter() { MakeProgramDirectoryCurrent(state_); }

  void Begin() {
    Enter();
    RemoveFile(std::string(kNameClipFolder) + kSpokenName + std::string(kNameClipExtension));
    fs::remove_all("out/Monday");
    fs::remove_all("limit");
    fs::create_directory("limit");
  }

  void Update() { UpdateCurrentWorkout(program_, nobody_, nobody_); }

  void Plan() {
    for (int i = 0; i < kPlanRounds; ++i) PlanUpdate(state_, clock_.Today(), random_);
  }

  void LookUpPlayTimes() const {
    for (int i = 0; i < kPlanRounds; ++i) benchmark::DoNotOptimize(PlayTimes(songs_));
  }

  void Encode() { EncodeMP3file(processes_, "instruction0.wav", "temp.mp3"); }

  /// The parts that every update needs.
  void RunPartsAlone() const {
    limits::RunProgram({"flite", "-voice", "rms", "-t", kSpokenName, "-o", "spoken.wav"});
    Files made;
    for (std::size_t i = 0; i < MaxExercises; ++i) {
      const std::string number = std::to_string(i);
      made.push_back("limit/instruction" + number + ".mp3");
      limits::RunProgram({"./lame.exe", "-V4", "instruction" + number + ".wav", made.back()});
    }
    for (std::size_t i = 0; i < songs_.size(); ++i) {
      made.push_back("limit/" + std::to_string(i) + ".mp3");
      limits::CopyBehind(plans_[i].tag, songs_[i], plans_[i].audioOffset, made.back());
    }
    limits::Flush(made, "limit");
  }

 private:
  static Files SongsOf(const Places& places) {
    Files songs;
    for (const char* kind : {"none", "small", "picture", "footer", "id3v1"}) {
      const Files some = FilesBelow(places.collection + "/copy/" + kind, ".mp3");
      songs.insert(songs.end(), some.begin(), some.begin() + MaxMusicFiles);
    }
    return songs;
  }

  void AddExercises() {
    constexpr const char* kNames[] = {"Bench Press", "Burpee", "Back Extension", "Bent Over Row",
                                      kSpokenName};
    for (int i = 0; i < MaxExercises; ++i) {
      ExerciseRecord& exercise = state_.Workout[i];
      InitialiseExercise(exercise, state_.Settings, clock_.Today());
      exercise.ExerciseName = kNames[i];
      exercise.NumberOfSets = MaxSets;
      for (int set = 0; set < MaxSets; ++set) {
        exercise.SetValue1[set] = 62.5F + static_cast<float>(10 * set);
        exercise.SetValue2[set] = static_cast<float>(12 - set);
      }
      exercise.NumberOfMusicFiles = MaxMusicFiles;
      for (int j = 0; j < MaxMusicFiles; ++j) {
        const std::string& song = songs_[static_cast<std::size_t>(i * MaxMusicFiles + j)];
        exercise.MusicFile[j] = song;
        exercise.MusicFilePlayTime[j] = GetPlayTime(song);
        plans_.push_back(PlanTaggedCopy(song, song, "Squats", "Monday.RPV").value());
      }
    }
    state_.NumberOfExercises = MaxExercises;
  }

  void MakeInstructions() {
    for (std::int16_t i = 0; i < MaxExercises; ++i) {
      GenerateHumanVoiceInstruction(state_, i, "instruction" + std::to_string(i) + ".wav", speech_,
                                    nobody_);
    }
  }

  std::string root_;
  Files songs_;
  std::vector<TaggedCopy> plans_;
  ProgramState state_;
  NobodyWatching nobody_;
  SystemClock clock_;
  TimerSeededNumbers random_;
  QtChildProcesses processes_;
  EngineSpeech speech_{InstalledEngines(processes_)};
  Program program_{state_, clock_, random_, processes_, speech_};
};

}  // namespace

void RegisterUpdate(const Places& places) {
  const auto workout = std::make_shared<Workout>(places);
  const auto begin = [=] { workout->Begin(); };
  const auto back = [work = places.work](const std::function<void()>& run) {
    return [=, timed = Timed(run)] {
      const double seconds = timed();
      fs::current_path(work);
      return seconds;
    };
  };
  Register({"encoding", "ours", begin, back([=] { workout->Encode(); })});
  Register({"encoding", "limit", begin, back([] {
              limits::RunProgram({"./lame.exe", "-V4", "instruction0.wav", "temp.mp3"});
            })});
  // What a person waits for is compared with what has to be read of the songs in any case.
  const auto enter = [=] { workout->Enter(); };
  Register({"plan of 50 songs", "ours", enter, back([=] { workout->Plan(); })});
  Register({"plan of 50 songs", "limit", enter, back([=] { workout->LookUpPlayTimes(); })});
  Register({"whole update", "ours", begin, back([=] { workout->Update(); })});
  Register({"whole update", "limit", begin, back([=] { workout->RunPartsAlone(); })});
  fs::current_path(places.work);
}

}  // namespace repvolta::bench
