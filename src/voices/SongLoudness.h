#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "app/ProgramState.h"
#include "base/File.h"
#include "platform/ChildProcess.h"

namespace repvolta {

/// How loud a song is, or why that is not known.
struct SongLoudness {
  std::string path;
  std::optional<double> loudness = {};  // LUFS
  std::string failure = {};             // in words for the user: "It has only silence"
  std::optional<FileStamp> stamp = {};  // of the file that was measured

  bool operator==(const SongLoudness&) const = default;
};

/// What was measured before, by path: the file voices/songs.txt of the program directory.
class KnownSongs {
 public:
  KnownSongs() = default;

  /// `programDirectory` ends with the separator. Without a file that can be read, nothing is known.
  explicit KnownSongs(const std::string& programDirectory);

  /// Nothing when the song was not measured, or has changed since.
  std::optional<double> Of(const std::string& path, const FileStamp& stamp) const;

  void Add(const SongLoudness& song);

  /// Keeps what is known; the oldest is dropped when it is a lot. Throws FileError.
  void Save(const std::string& programDirectory) const;

 private:
  struct Entry {
    std::string stamp;
    double loudness = 0;
  };

  void Read(std::string_view line);

  std::vector<std::string> order_;  // the paths, the oldest first
  std::map<std::string, Entry> entries_;
};

/// At most `most` songs that say how loud a person's music is: those of the workout in memory, then
/// some of the music list, spread over each. The program directory must be current. Throws
/// FileError.
std::vector<std::string> SongsToMeasure(const ProgramState& state, std::size_t most);

inline constexpr std::size_t kMeasuredSongs = 12;

/// Measures a song, unless it is known. What is wrong with it is in the result, never thrown.
SongLoudness MeasureSong(ChildProcesses& processes, const std::string& decoder,
                         const std::string& path, const KnownSongs& known);

/// The position, among so many songs in the order of their loudness, of the one that stands for the
/// louder ones: a quarter of them may be louder still.
constexpr std::size_t UpperPosition(std::size_t songs) { return (songs - 1) * 3 / 4; }

inline constexpr int kVoiceAsMade = -18;  // LUFS, as clips/ClipSound makes it
inline constexpr int kQuietestRaised = -16;
inline constexpr int kLoudestRaised = -10;

/// The level at which clips are heard after these songs: kVoiceAsMade, or from kQuietestRaised to
/// kLoudestRaised. Nothing when no song was measured.
std::optional<int> RecommendedLevel(std::span<const SongLoudness> songs);

}  // namespace repvolta
