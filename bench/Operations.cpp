#include "Operations.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <stdexcept>

#include "base/File.h"
#include "base/FileNames.h"
#include "instruction/MergeWAVfiles.h"
#include "mp3/GetPlayTime.h"
#include "update/PlanUpdate.h"
#include "update/ProcessMP3tag.h"
#include "update/RandomMusicList.h"

#include "NobodyWatching.h"

namespace repvolta::bench {
namespace {

namespace fs = std::filesystem;

constexpr const char* kTitle = "Squats, 3 sets, 60 kilograms for 12 reps";
constexpr const char* kWorkout = "Monday.RPV";

/// A file that is too long to examine stays untagged.
void Tag(const std::string& path) {
  NobodyWatching log;
  try {
    ProcessMP3tag(path, kTitle, kWorkout, log);
  } catch (const std::overflow_error&) {
  }
}

}  // namespace

int PlayTimes(const std::vector<std::string>& files) {
  int sum = 0;
  for (const std::string& file : files) {
    try {
      sum += GetPlayTime(file);
    } catch (const std::exception&) {
    }
  }
  return sum;
}

void CopyAndTag(const std::vector<std::string>& songs, const std::string& folder) {
  for (const std::string& song : songs) {
    const std::string path = folder + "/" + FileName(song);
    const auto plan = PlanTaggedCopy(song, path, kTitle, kWorkout);
    CopyFileOver(song, path, plan ? CopyStart{plan->tag, plan->audioOffset} : CopyStart{});
    if (!plan) Tag(path);
  }
}

void CopyThenTag(const std::vector<std::string>& songs, const std::string& folder) {
  for (const std::string& song : songs) {
    const std::string path = folder + "/" + FileName(song);
    CopyFileOver(song, path);
    Tag(path);
  }
}

void PlanSongs(const std::vector<std::string>& songs) {
  ProgramState state;
  state.WorkoutFileName = kWorkout;
  state.Settings.OutputPath = ".";
  for (std::size_t i = 0; i < songs.size(); ++i) {
    ExerciseRecord& exercise = state.Workout[static_cast<int>(i / MaxMusicFiles)];
    exercise.ExerciseName = "Squats";
    exercise.MusicFile[exercise.NumberOfMusicFiles] = songs[i];
    exercise.MusicFilePlayTime[exercise.NumberOfMusicFiles] = 1;
    ++exercise.NumberOfMusicFiles;
    state.NumberOfExercises = static_cast<std::int16_t>(i / MaxMusicFiles + 1);
  }
  TimerSeededNumbers random;
  PlanUpdate(state, 0, random);
}

void JoinClips(const std::string& target, const std::vector<std::string>& clips) {
  NobodyWatching log;
  for (const std::string& clip : clips) MergeWAVfiles(target, clip, log);
}

void DrawInVain(int lines) {
  TimerSeededNumbers random;
  GetRandomMusicFile(lines, 1, 2, random);
}

std::vector<std::string> FilesBelow(const std::string& folder, const std::string& extension) {
  std::vector<std::string> files;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (entry.is_regular_file() && entry.path().extension() == extension) {
      files.push_back(entry.path());
    }
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::vector<std::string> SixtyClips(const std::string& clipFolder) {
  constexpr std::size_t kClips = 60;
  std::vector<std::string> all;
  for (const std::string& name : ListFiles(clipFolder, ".wav")) {
    all.push_back(std::string(clipFolder).append("/").append(name));
  }
  std::vector<std::string> clips;
  for (std::size_t i = 0; i < kClips; ++i) clips.push_back(all[i % all.size()]);
  return clips;
}

}  // namespace repvolta::bench
