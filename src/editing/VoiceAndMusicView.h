#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "voices/SongLoudness.h"

namespace repvolta {

/// How far the measuring of the songs is.
struct SongProgress {
  std::vector<SongLoudness> songs;  // that are measured, or cannot be
  std::size_t all = 0;
  bool isMeasuring = false;
};

/// A line of the list of songs.
struct SongRow {
  std::string name;
  std::string loudness;  // "-9.3 LUFS", or why it is not known

  bool operator==(const SongRow&) const = default;
};

std::vector<SongRow> SongRows(std::span<const SongLoudness> songs);

/// What the window says of the songs, in a sentence or two: what is recommended and why, or what is
/// missing.
std::string SongSummary(const SongProgress& progress);

/// "-12 LUFS, 6 dB louder than as made", "as made (-18 LUFS)".
std::string LevelText(int level);

/// What is said when so many recordings were brought to a level.
std::string UseNotice(std::size_t recordings, int level);

/// The level that a slider shows when it is moved from `before` to `wanted`: between kVoiceAsMade
/// and kQuietestRaised there is none.
int NextLevel(int before, int wanted);

/// The song to listen to that says most about the recommended level; nothing when none is measured.
std::optional<std::size_t> TypicalSong(std::span<const SongLoudness> songs);

}  // namespace repvolta
