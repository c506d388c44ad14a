#include "editing/VoiceAndMusicView.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

#include "base/FileNames.h"

namespace repvolta {
namespace {

std::string Tenths(double loudness) {
  const auto tenths = std::lround(std::abs(loudness) * 10);
  return (loudness < 0 && tenths > 0 ? "-" : "") + std::to_string(tenths / 10) + "." +
         std::to_string(tenths % 10);
}

std::string Songs(std::size_t count) {
  return std::to_string(count) + (count == 1 ? " song" : " songs");
}

std::size_t CountMeasured(std::span<const SongLoudness> songs) {
  return static_cast<std::size_t>(std::ranges::count_if(
      songs, [](const SongLoudness& song) { return song.loudness.has_value(); }));
}

std::string Recommendation(const SongProgress& progress) {
  const std::optional<int> level = RecommendedLevel(progress.songs);
  if (!level) return "No song could be measured, so choose the level by ear.";
  const double loud = *progress.songs[*TypicalSong(progress.songs)].loudness;
  const std::size_t count = CountMeasured(progress.songs);
  std::string text =
      Songs(count) + (count == 1 ? " measured, at " : " measured, the louder ones at ");
  text += Tenths(loud) + " LUFS. Recommended for the voice: " + LevelText(*level) + ".";
  const std::size_t left = progress.songs.size() - count;
  if (left > 0) text += " " + Songs(left) + " could not be measured.";
  return text;
}

}  // namespace

std::vector<SongRow> SongRows(std::span<const SongLoudness> songs) {
  std::vector<SongRow> rows;
  rows.reserve(songs.size());
  for (const SongLoudness& song : songs) {
    rows.push_back(
        {FileName(song.path), song.loudness ? Tenths(*song.loudness) + " LUFS" : song.failure});
  }
  return rows;
}

std::string SongSummary(const SongProgress& progress) {
  if (progress.all == 0) {
    return "There are no songs to measure: the workout has none, and there is no list of random "
           "music. Choose the level by ear.";
  }
  if (progress.isMeasuring) {
    return "Song " + std::to_string(progress.songs.size() + 1) + " of " +
           std::to_string(progress.all) + " is being measured ...";
  }
  if (progress.songs.size() < progress.all) return "Stopped. " + Recommendation(progress);
  return Recommendation(progress);
}

std::string LevelText(int level) {
  const std::string loudness = std::to_string(level) + " LUFS";
  if (level == kVoiceAsMade) return "as made (" + loudness + ")";
  return loudness + ", " + std::to_string(level - kVoiceAsMade) + " dB louder than as made";
}

std::string UseNotice(std::size_t recordings, int level) {
  if (recordings == 0) return "All recordings have this level already: " + LevelText(level) + ".";
  const std::string count =
      recordings == 1 ? "1 recording was" : std::to_string(recordings) + " recordings were";
  return count + " changed. The voice is now " + (level == kVoiceAsMade ? "" : "at ") +
         LevelText(level) + "; the next update uses it.";
}

int NextLevel(int before, int wanted) {
  const int level = std::clamp(wanted, kVoiceAsMade, kLoudestRaised);
  if (level == kVoiceAsMade || level >= kQuietestRaised) return level;
  return before < level ? kQuietestRaised : kVoiceAsMade;
}

std::optional<std::size_t> TypicalSong(std::span<const SongLoudness> songs) {
  std::vector<std::size_t> measured;
  for (std::size_t i = 0; i < songs.size(); ++i) {
    if (songs[i].loudness) measured.push_back(i);
  }
  if (measured.empty()) return std::nullopt;
  std::ranges::stable_sort(measured, {}, [&](std::size_t i) { return *songs[i].loudness; });
  return measured[UpperPosition(measured.size())];
}

}  // namespace repvolta
