#include "editing/MusicDifference.h"

#include <algorithm>
#include <iterator>
#include <set>

#include "base/FileNames.h"
#include "base/Numbers.h"

namespace repvolta {
namespace {

using Songs = std::vector<std::string>;

int ClampedSongs(const ExerciseRecord& exercise) {
  return std::clamp<int>(exercise.NumberOfMusicFiles, 0, kMusicSlots);
}

Songs SongsOfExercise(const ExerciseRecord& exercise) {
  Songs songs;
  songs.reserve(kMusicSlots);
  for (int i = 0; i < ClampedSongs(exercise); ++i) {
    songs.push_back(exercise.MusicFile[i].Trimmed());
  }
  return songs;
}

Songs Without(Songs songs, Songs others) {
  std::ranges::sort(songs);
  std::ranges::sort(others);
  Songs rest;
  std::ranges::set_difference(songs, others, std::back_inserter(rest));
  return rest;
}

/// Names are enough where no two different songs have the same one.
bool AreKnownByName(const Songs& a, const Songs& b) {
  std::set<std::string> paths(a.begin(), a.end());
  paths.insert(b.begin(), b.end());
  std::set<std::string> names;
  for (const std::string& path : paths) names.insert(FileName(path));
  return names.size() == paths.size() && !names.contains("");
}

std::string ListOf(const Songs& songs, bool byName) {
  std::string text;
  for (const std::string& song : songs) {
    text += (text.empty() ? "" : ", ") + (byName ? FileName(song) : song);
  }
  return text;
}

std::string CountText(int songs) {
  return std::to_string(songs) + (songs == 1 ? " song" : " songs");
}

void TakeOverSongs(const ExerciseRecord& then, const ExerciseRecord& now, ExerciseRecord& rest) {
  const int count = std::max(ClampedSongs(then), ClampedSongs(now));
  for (int i = 0; i < count; ++i) {
    rest.MusicFile[i] = now.MusicFile[i];
    rest.MusicFilePlayTime[i] = now.MusicFilePlayTime[i];
  }
}

}  // namespace

std::vector<std::string> MusicDifference(const ExerciseRecord& then, const ExerciseRecord& now,
                                         ExerciseRecord& rest) {
  const Songs before = SongsOfExercise(then);
  const Songs today = SongsOfExercise(now);
  const bool byName = AreKnownByName(before, today);
  std::vector<std::string> lines;
  if (then.NumberOfMusicFiles != now.NumberOfMusicFiles) {
    lines.push_back(CountText(then.NumberOfMusicFiles) + " instead of " +
                    std::to_string(now.NumberOfMusicFiles));
    rest.NumberOfMusicFiles = now.NumberOfMusicFiles;
  }
  if (before != today) {
    const Songs onlyThen = Without(before, today);
    const Songs onlyNow = Without(today, before);
    if (!onlyThen.empty()) lines.push_back("only then " + ListOf(onlyThen, byName));
    if (!onlyNow.empty()) lines.push_back("only now " + ListOf(onlyNow, byName));
    if (onlyThen.empty() && onlyNow.empty()) {
      lines.push_back("another order: " + ListOf(before, byName));
    }
    TakeOverSongs(then, now, rest);
  }
  if (then.TotalMusicTime != now.TotalMusicTime) {
    lines.push_back(FormatTime(then.TotalMusicTime) + " in all instead of " +
                    FormatTime(now.TotalMusicTime));
    rest.TotalMusicTime = now.TotalMusicTime;
  }
  return lines;
}

}  // namespace repvolta
