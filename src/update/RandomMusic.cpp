#include "update/RandomMusic.h"

#include <utility>

#include "base/File.h"
#include "base/Numbers.h"
#include "mp3/GetPlayTime.h"
#include "update/RandomMusicList.h"

namespace repvolta {
namespace {

/// Fills the music list of one exercise.
class RandomFill {
 public:
  RandomFill(const ProgramState& state, ExerciseRecord& exercise, RandomNumbers& random,
             Steps& steps)
      : state_(state), exercise_(exercise), random_(random), steps_(steps) {}

  Drawing Run() {
    exercise_.NumberOfMusicFiles = 0;
    // An exercise has room for more files, but gets no more than by hand (quirk 36).
    for (int slot = 0; slot < MaxMusicFiles && FillSlot(slot); ++slot) {
      // The file that crosses the target is kept (quirk 35). Without a target one file is enough,
      // even one whose play time is not known (quirk 44).
      if (total_ > exercise_.TargetExerciseTime || exercise_.TargetExerciseTime == 0) break;
    }
    exercise_.TotalMusicTime = total_;
    return std::move(drawing_);
  }

 private:
  /// False when no file was found (quirk 39).
  bool FillSlot(int slot) {
    exercise_.MusicFile[slot] = {};
    const std::string path = Draw();
    if (path.empty() || !FileIsReachable(path)) {
      steps_.Log("ERROR: Unable to find random music for Exercise - " +
                 exercise_.ExerciseName.Text());
      drawing_.endedEarly = true;
      drawing_.missing = path;
      return false;
    }
    std::int16_t seconds = 0;
    steps_.Run([&] { seconds = GetPlayTime(path); });
    steps_.Run([&] { total_ = CheckedInt16(total_ + seconds); });
    exercise_.MusicFilePlayTime[slot] = seconds;
    exercise_.MusicFile[slot] = path;
    ++exercise_.NumberOfMusicFiles;
    drawing_.songs.push_back(path);
    steps_.Log("Random music file found and added for Exercise - " + exercise_.ExerciseName.Text());
    return true;
  }

  /// A song that fits: no longer than twice the target time (quirk 37).
  std::string Draw() {
    std::string path;
    steps_.Run([&] {
      const std::int16_t longest = CheckedInt16(std::int64_t{exercise_.TargetExerciseTime} * 2);
      path = GetRandomMusicFile(state_.RandomMusicFiles, 0, longest, random_);
    });
    return path;
  }

  const ProgramState& state_;
  ExerciseRecord& exercise_;
  RandomNumbers& random_;
  Steps& steps_;
  std::int16_t total_ = 0;
  Drawing drawing_;
};

}  // namespace

std::optional<Drawing> DrawFor(ProgramState& state, int exercise, RandomNumbers& random,
                               Steps& steps) {
  ExerciseRecord& record = state.Workout[exercise];
  if (record.RandomMusic != kTrue) return std::nullopt;
  return RandomFill(state, record, random, steps).Run();
}

DrawnSongs DrawRandomMusic(Program& program, Steps& steps) {
  DrawnSongs drawn;
  for (int i = 0; i < program.state.NumberOfExercises; ++i) {
    if (auto drawing = DrawFor(program.state, i, program.random, steps)) {
      drawn[i] = std::move(drawing->songs);
    }
  }
  return drawn;
}

}  // namespace repvolta
