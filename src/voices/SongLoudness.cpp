#include "voices/SongLoudness.h"

#include <algorithm>
#include <cmath>
#include <exception>

#include "base/FileError.h"
#include "base/Folder.h"
#include "base/Lines.h"
#include "base/ProgramFiles.h"
#include "base/Text.h"
#include "base/WholeFile.h"
#include "voices/FieldLines.h"
#include "voices/SongSound.h"

namespace repvolta {
namespace {

constexpr const char* kSongsFile = "voices/songs.txt";
constexpr const char* kSongsFolder = "voices";
constexpr std::size_t kFields = 3;  // loudness, stamp, path
constexpr std::size_t kMostKnown = 500;

/// The level of a clip is that of one channel, and what plays on both ears is louder by this.
constexpr double kBothEars = 3;

std::string StampText(const FileStamp& stamp) {
  return std::to_string(stamp.size) + ":" + std::to_string(stamp.seconds) + "." +
         std::to_string(stamp.nanoseconds);
}

bool IsOneLine(const std::string& path) { return path.find_first_of("\n\r") == std::string::npos; }

void AddNew(const std::string& song, std::vector<std::string>& songs) {
  if (!song.empty() && std::ranges::find(songs, song) == songs.end()) songs.push_back(song);
}

/// At most `most` numbers below `count`, ascending, from its start to its end.
std::vector<std::int64_t> Spread(std::int64_t count, std::size_t most) {
  const auto wanted = std::min(count, static_cast<std::int64_t>(most));
  std::vector<std::int64_t> numbers;
  numbers.reserve(static_cast<std::size_t>(wanted));
  for (std::int64_t i = 0; i < wanted; ++i) numbers.push_back(i * count / wanted);
  return numbers;
}

std::vector<std::string> SongsOfWorkout(const ProgramState& state) {
  std::vector<std::string> songs;
  for (int i = 0; i < state.NumberOfExercises; ++i) {
    const ExerciseRecord& exercise = state.Workout[i];
    for (int j = 0; j < exercise.NumberOfMusicFiles; ++j) {
      AddNew(exercise.MusicFile[j].Trimmed(), songs);
    }
  }
  return songs;
}

}  // namespace

KnownSongs::KnownSongs(const std::string& programDirectory) {
  try {
    ForEachLine(programDirectory + kSongsFile, [this](std::string_view line) {
      Read(line);
      return order_.size() < kMostKnown;
    });
  } catch (const FileError&) {
    // The songs are measured again.
  }
}

void KnownSongs::Read(std::string_view line) {
  const auto fields = Fields(line, kFields);
  const auto loudness = NumberIn(fields.front());
  if (fields.size() != kFields || !loudness) return;
  const std::string path(fields[2]);
  if (!IsOneLine(path)) return;
  const bool isNew =
      entries_.insert_or_assign(path, Entry{std::string(fields[1]), *loudness}).second;
  if (isNew) order_.push_back(path);
}

std::optional<double> KnownSongs::Of(const std::string& path, const FileStamp& stamp) const {
  const auto found = entries_.find(path);
  if (found == entries_.end() || found->second.stamp != StampText(stamp)) return std::nullopt;
  return found->second.loudness;
}

void KnownSongs::Add(const SongLoudness& song) {
  if (!song.loudness || !song.stamp || !IsOneLine(song.path)) return;
  std::erase(order_, song.path);
  order_.push_back(song.path);
  entries_[song.path] = {StampText(*song.stamp), *song.loudness};
}

void KnownSongs::Save(const std::string& programDirectory) const {
  std::string lines;
  const std::size_t dropped = order_.size() - std::min(order_.size(), kMostKnown);
  for (std::size_t i = dropped; i < order_.size(); ++i) {
    const Entry& entry = entries_.at(order_[i]);
    lines += TwoPlaces(entry.loudness) + "\t" + entry.stamp + "\t" + order_[i] + "\n";
  }
  MakeFolder(programDirectory + kSongsFolder);
  WriteWholeFile(programDirectory + kSongsFile, AsBytes(lines));
}

std::vector<std::string> SongsToMeasure(const ProgramState& state, std::size_t most) {
  const std::vector<std::string> ofWorkout = SongsOfWorkout(state);
  std::vector<std::string> songs;
  for (const std::int64_t i : Spread(std::ssize(ofWorkout), most)) {
    songs.push_back(ofWorkout[static_cast<std::size_t>(i)]);
  }
  if (songs.size() == most || !FileExists(kMusicList)) return songs;
  const auto numbers = Spread(CountLines(kMusicList), most);
  for (const std::string& line : LinesAt(kMusicList, numbers)) {
    if (songs.size() < most) AddNew(std::string(TrimBlanks(line)), songs);
  }
  return songs;
}

SongLoudness MeasureSong(ChildProcesses& processes, const std::string& decoder,
                         const std::string& path, const KnownSongs& known) {
  SongLoudness song{.path = path};
  try {
    song.stamp = File::Open(path, File::Access::kRead).Stamp();
    song.loudness = known.Of(path, *song.stamp);
    if (song.loudness) return song;
    const double loudness = LoudnessOf(DecodeMiddle(processes, decoder, path));
    if (!std::isfinite(loudness)) throw SongError("It has only silence");
    song.loudness = loudness;
  } catch (const FileError& error) {
    song.failure = "It could not be read: " + error.Reason();
  } catch (const std::exception& error) {
    song.failure = error.what();
  }
  return song;
}

std::optional<int> RecommendedLevel(std::span<const SongLoudness> songs) {
  std::vector<double> all;
  all.reserve(songs.size());
  for (const SongLoudness& song : songs) {
    if (song.loudness) all.push_back(*song.loudness);
  }
  if (all.empty()) return std::nullopt;
  std::ranges::sort(all);
  const auto level = static_cast<int>(std::lround(all[UpperPosition(all.size())] - kBothEars));
  if (level < kQuietestRaised - 1) return kVoiceAsMade;
  return std::clamp(level, kQuietestRaised, kLoudestRaised);
}

}  // namespace repvolta
