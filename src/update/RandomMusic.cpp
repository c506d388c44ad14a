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
  RandomFill(Program& program, ExerciseRecord& exercise, Steps& steps)
      : program_(program), exercise_(exercise), steps_(steps) {}

  /// Returns the full paths of the files.
  std::vector<std::string> Run() {
    exercise_.NumberOfMusicFiles = 0;
    // An exercise has room for more files, but gets no more than by hand (quirk 36).
    for (int slot = 0; slot < MaxMusicFiles && FillSlot(slot); ++slot) {
      // The file that crosses the target is kept (quirk 35). Without a target one file is enough,
      // even one whose play time is not known (quirk 44).
      if (total_ > exercise_.TargetExerciseTime || exercise_.TargetExerciseTime == 0) break;
    }
    exercise_.TotalMusicTime = total_;
    return std::move(paths_);
  }

 private:
  /// False when no file was found (quirk 39).
  bool FillSlot(int slot) {
    exercise_.MusicFile[slot] = {};
    const std::string path = Draw();
    if (path.empty() || !FileIsReachable(path)) {
      steps_.Log("ERROR: Unable to find random music for Exercise - " +
                 exercise_.ExerciseName.Text());
      return false;
    }
    std::int16_t seconds = 0;
    steps_.Run([&] { seconds = GetPlayTime(path); });
    steps_.Run([&] { total_ = CheckedInt16(total_ + seconds); });
    exercise_.MusicFilePlayTime[slot] = seconds;
    exercise_.MusicFile[slot] = path;
    ++exercise_.NumberOfMusicFiles;
    paths_.push_back(path);
    steps_.Log("Random music file found and added for Exercise - " + exercise_.ExerciseName.Text());
    return true;
  }

  /// A song that fits: no longer than twice the target time (quirk 37).
  std::string Draw() {
    std::string path;
    steps_.Run([&] {
      const std::int16_t longest = CheckedInt16(std::int64_t{exercise_.TargetExerciseTime} * 2);
      path = GetRandomMusicFile(program_.state.RandomMusicFiles, 0, longest, program_.random);
    });
    return path;
  }

  Program& program_;
  ExerciseRecord& exercise_;
  Steps& steps_;
  std::int16_t total_ = 0;
  std::vector<std::string> paths_;
};

}  // namespace

DrawnSongs DrawRandomMusic(Program& program, Steps& steps) {
  DrawnSongs drawn;
  for (int i = 0; i < program.state.NumberOfExercises; ++i) {
    ExerciseRecord& exercise = program.state.Workout[i];
    if (exercise.RandomMusic == kTrue) drawn[i] = RandomFill(program, exercise, steps).Run();
  }
  return drawn;
}

}  // namespace repvolta
