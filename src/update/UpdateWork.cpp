#include "update/UpdateWork.h"

#include <algorithm>

#include "base/FileNames.h"
#include "player/PlayerPlayList.h"
#include "update/SongCopy.h"
#include "update/StopTexts.h"

namespace repvolta {
namespace {

/// Joining and encoding an instruction takes about as long as copying this much to a slow player.
constexpr std::uint64_t kInstructionWork = std::uint64_t{2} << 20;

/// So does the last flush of what the player has not written yet.
constexpr std::uint64_t kFlushWork = std::uint64_t{1} << 20;

/// A song that cannot be examined is no work: it will not be copied.
std::uint64_t AmountOfSong(const std::string& song) { return SizeIfReachable(song).value_or(0); }

std::vector<std::string> SongsOfExercise(const ExerciseRecord& exercise) {
  std::vector<std::string> songs;
  const int count = std::clamp<int>(exercise.NumberOfMusicFiles, 0, kMusicSlots);
  songs.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) songs.push_back(exercise.MusicFile[i].Trimmed());
  return songs;
}

}  // namespace

std::vector<ExerciseWork> WorkOfExercises(const ExerciseSlots& workout, int count,
                                          const DrawnSongs& drawn) {
  std::vector<ExerciseWork> exercises;
  for (int i = 0; i < count; ++i) {
    const auto found = drawn.find(i);
    exercises.push_back(
        {.name = workout[i].ExerciseName.Trimmed(),
         .songs = found == drawn.end() ? SongsOfExercise(workout[i]) : found->second});
  }
  return exercises;
}

std::uint64_t AmountOfWork(const std::vector<ExerciseWork>& exercises) {
  std::uint64_t amount = kFlushWork + exercises.size() * kInstructionWork;
  for (const ExerciseWork& exercise : exercises) {
    for (const std::string& song : exercise.songs) amount += AmountOfSong(song);
  }
  return amount;
}

void UpdateWork::Plan(std::vector<ExerciseWork> exercises) {
  exercises_ = std::move(exercises);
  listed_.assign(exercises_.size(), 0);
  const bool isWatched = host_.IsWatched();
  std::uint64_t before = 0;
  for (const ExerciseWork& exercise : exercises_) {
    firstFile_.push_back(before_.size());
    before_.push_back(before);
    before += kInstructionWork;
    for (const std::string& song : exercise.songs) {
      before_.push_back(before);
      if (isWatched) before += AmountOfSong(song);
    }
  }
  before_.push_back(before);
  total_ = before + kFlushWork;
  Show(0);
}

void UpdateWork::BeginInstruction(int exercise) {
  exercise_ = static_cast<std::size_t>(exercise);
  Begin(firstFile_.at(exercise_), "Instruction of " + exercises_[exercise_].name);
}

void UpdateWork::BeginSong(const std::string& song) {
  // A damaged workout may have more songs than slots.
  Begin(std::min(file_ + 1, before_.size() - 1), FileName(song));
}

void UpdateWork::Begin(std::size_t file, const std::string& atHand) {
  file_ = file;
  copied_ = 0;
  atHand_ = atHand;
  Show(before_[file]);
}

CopyWatch UpdateWork::Watch() {
  if (!host_.IsWatched()) return {};
  return [this](std::uint64_t bytes) {
    copied_ += bytes;
    const std::uint64_t end = file_ + 1 < before_.size() ? before_[file_ + 1] : before_[file_];
    Show(std::min(before_[file_] + copied_, end));
    steps_.CheckStop();
  };
}

void UpdateWork::EndFile() {
  atHand_.clear();
  Show(before_[std::min(file_ + 1, before_.size() - 1)]);
}

void UpdateWork::AddListed(int seconds) {
  ++listed_.at(exercise_);
  if (seconds == kUnknownSeconds) {
    ++unknownSeconds_;
  } else {
    seconds_ += seconds;
  }
}

void UpdateWork::BeginFlush() { Begin(before_.size() - 1, "Writing to the player"); }

void UpdateWork::End() {
  atHand_.clear();
  Show(total_);
}

std::string UpdateWork::StoppedLine() const {
  std::size_t planned = 0;
  std::size_t there = 0;
  std::vector<std::string> incomplete;
  for (std::size_t i = 0; i < exercises_.size(); ++i) {
    const std::size_t files = 1 + exercises_[i].songs.size();
    planned += files;
    there += listed_[i];
    if (listed_[i] < files) incomplete.push_back(exercises_[i].name);
  }
  incomplete.erase(std::unique(incomplete.begin(), incomplete.end()), incomplete.end());
  return StoppedText(there, planned, incomplete);
}

UpdateResult UpdateWork::Result(UpdateResult::End end) const {
  UpdateResult result{.end = end, .seconds = seconds_, .unknownSeconds = unknownSeconds_};
  for (const ExerciseWork& exercise : exercises_) result.planned += 1 + exercise.songs.size();
  for (const std::size_t files : listed_) result.files += files;
  return result;
}

void UpdateWork::Show(std::uint64_t done) {
  if (host_.IsWatched()) host_.ShowWork({.done = done, .total = total_, .atHand = atHand_});
}

}  // namespace repvolta
