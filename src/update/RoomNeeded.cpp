#include "update/RoomNeeded.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <string>
#include <vector>

#include "base/File.h"
#include "base/FileError.h"
#include "base/Lines.h"
#include "base/ProgramFiles.h"
#include "base/Text.h"
#include "instruction/TextInstruction.h"
#include "instruction/VoiceInstruction.h"
#include "mp3/GetPlayTime.h"
#include "mp3/Id3v2Format.h"
#include "update/Encoder.h"
#include "update/Growth.h"
#include "update/InstructionSize.h"
#include "update/NumberedName.h"
#include "update/ProcessMP3tag.h"
#include "update/SongCopy.h"

namespace repvolta {
namespace {

constexpr double kToSpare = 1.1;

/// The play times and sizes of so many songs stand for the whole list of music.
constexpr std::int32_t kSampledSongs = 20;

/// In front of a copied song that is tagged in a step of its own.
constexpr std::uint64_t kTagOfSecondStep = 2 * kTagStep;

/// Around the name of a file in both play lists: numbers, the title and the line ends.
constexpr std::uint64_t kLineRoom = 64;

// What is never exceeded: 448 kbit a second, and instructions of ten seconds of the finest clips.
constexpr std::uint64_t kMostBytesASecond = 56'000;
constexpr std::uint64_t kMostOfInstruction = 16'000'000;
constexpr std::uint64_t kMostBesideAudio = 100'000;

std::uint64_t Spared(std::uint64_t bytes) {
  return static_cast<std::uint64_t>(std::ceil(static_cast<double>(bytes) * kToSpare));
}

/// Songs from all parts of the random music list.
struct Sample {
  double seconds = 0;
  double bytes = 0;
  int songs = 0;
};

void Take(const std::string& song, Sample& sample) {
  try {
    const int seconds = GetPlayTime(song);
    if (seconds <= 0) return;
    sample.bytes += static_cast<double>(SizeIfReachable(song).value_or(0));
    sample.seconds += seconds;
    ++sample.songs;
  } catch (const std::exception&) {
    // A song that cannot be read is not drawn either.
  }
}

Sample SampleOfMusic(std::int32_t listed) {
  Sample sample;
  if (listed <= 0 || !FileIsReachable(kMusicList)) return sample;
  const std::int32_t count = std::min(listed, kSampledSongs);
  std::vector<std::int64_t> numbers;
  for (std::int64_t i = 0; i < count; ++i) numbers.push_back(i * listed / count);
  for (const std::string& line : LinesAt(kMusicList, numbers)) {
    Take(std::string(TrimBlanks(line)), sample);
  }
  return sample;
}

int SongsIn(const ExerciseRecord& exercise) {
  return std::clamp<int>(exercise.NumberOfMusicFiles, 0, kMusicSlots);
}

/// Goes through one update without making anything.
class Estimate {
 public:
  Estimate(const ProgramState& state, double day, std::uint64_t unit)
      : state_(state), workout_(state.Workout), day_(day), unit_(unit) {}

  RoomNeeded Run() {
    encoding_ = EncodingNow();
    for (std::int16_t i = 0; i < state_.NumberOfExercises; ++i) {
      ExerciseRecord& exercise = workout_[i];
      Grow(exercise, day_);
      sentence_ = SentenceOf(i);
      newTag_ = SizeOfNewTag(SongCopyName(0, ""), sentence_, state_.WorkoutFileName);
      AddInstruction(exercise);
      if (exercise.RandomMusic == kTrue) {
        AddRandomMusic(exercise);
      } else {
        for (int j = 0; j < SongsIn(exercise); ++j) AddSong(exercise.MusicFile[j].Trimmed());
      }
    }
    AddFile(listBytes_);
    return needed_;
  }

 private:
  /// Every file takes whole units of the disk.
  void AddFile(std::uint64_t size) { needed_.bytes += (size + unit_ - 1) / unit_ * unit_; }

  void AddListed(std::uint64_t size, std::string_view name) {
    AddFile(size);
    // Its full path in one play list, its name and title in the other one.
    listBytes_ += state_.Settings.OutputPath.Text().size() + state_.WorkoutFileName.size() +
                  2 * name.size() + sentence_.size() + kLineRoom;
  }

  std::string SentenceOf(std::int16_t exercise) const {
    try {
      return GenerateTextInstruction(workout_, exercise);
    } catch (const std::out_of_range&) {
      return "";
    }
  }

  void AddInstruction(const ExerciseRecord& exercise) {
    const InstructionSize size =
        SizeOfInstruction(ClipsFor(state_.Settings, exercise).clips, clipFiles_);
    if (encoding_ == Encoding::kNoEncoder) {
      AddListed(Spared(size.bytes), "Instructions");
    } else {
      AddListed(Spared(EncodedSize(size)) + kTagOfSecondStep, "Instructions");
    }
  }

  /// A song that is missing or cannot be read needs no room.
  void AddSong(const std::string& song) {
    const std::string name = SongCopyName(0, song);
    try {
      const auto copy = PlanSongCopy(song, name, {sentence_, state_.WorkoutFileName}, newTag_);
      if (copy) AddListed(copy->bytes, name);
    } catch (const FileError&) {
      return;
    }
  }

  /// The songs are drawn until they exceed the target, so one more than fits is counted.
  void AddRandomMusic(const ExerciseRecord& exercise) {
    if (!sample_) sample_ = SampleOfMusic(state_.RandomMusicFiles);
    if (sample_->songs == 0 || exercise.TargetExerciseTime <= 0) return;
    const double meanSeconds = sample_->seconds / sample_->songs;
    // No drawn song is longer than twice the target.
    const double songSeconds = std::min(meanSeconds, 2.0 * exercise.TargetExerciseTime);
    const double songs =
        std::min<double>(MaxMusicFiles, std::floor(exercise.TargetExerciseTime / songSeconds) + 1);
    const double bytes = songSeconds * sample_->bytes / sample_->seconds;
    for (int i = 0; i < static_cast<int>(songs); ++i) {
      AddListed(Spared(static_cast<std::uint64_t>(bytes)) + kTagStep, std::string(kNameRoom, ' '));
    }
  }

  static constexpr std::size_t kNameRoom = 64;

  const ProgramState& state_;
  ExerciseSlots workout_;  // grown as the update will grow it
  double day_;
  std::uint64_t unit_;
  RoomNeeded needed_;
  Encoding encoding_ = Encoding::kNoEncoder;
  std::string sentence_;
  std::uint64_t newTag_ = 0;  // the size of the exercise's tags
  std::uint64_t listBytes_ = 0;
  ClipFiles clipFiles_;
  std::optional<Sample> sample_;
};

/// Play times stay in their slots when names move, so that of a song may stand in any slot; nothing
/// when one is not known.
std::optional<std::uint64_t> LongestPlayTime(const ExerciseRecord& exercise) {
  const auto begin = exercise.MusicFilePlayTime.begin();
  if (std::any_of(begin, begin + SongsIn(exercise), [](int seconds) { return seconds <= 0; })) {
    return std::nullopt;
  }
  const int longest = *std::max_element(begin, exercise.MusicFilePlayTime.end());
  return static_cast<std::uint64_t>(std::max(longest, 0)) + 1;
}

}  // namespace

RoomNeeded NeededOn(const ProgramState& state, double day, std::uint64_t unit) {
  return Estimate(state, day, unit).Run();
}

std::optional<RoomNeeded> NeededAtMost(const ProgramState& state) {
  RoomNeeded most;
  for (int i = 0; i < state.NumberOfExercises; ++i) {
    const ExerciseRecord& exercise = state.Workout[i];
    std::uint64_t seconds = 0;
    std::uint64_t songs = MaxMusicFiles;
    if (exercise.RandomMusic == kTrue) {
      // All but the last song stay below the target, and the last one below twice the target.
      seconds = 3 * static_cast<std::uint64_t>(std::max<int>(exercise.TargetExerciseTime, 0));
    } else {
      songs = static_cast<std::uint64_t>(SongsIn(exercise));
      const auto longest = LongestPlayTime(exercise);
      if (!longest) return std::nullopt;
      seconds = songs * *longest;
    }
    most.bytes += kMostOfInstruction + seconds * kMostBytesASecond + songs * kMostBesideAudio;
  }
  return most;
}

}  // namespace repvolta
