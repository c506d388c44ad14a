#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "app/BroughtFiles.h"
#include "base/Bytes.h"
#include "base/FileError.h"

namespace repvolta {

enum class ClipOwner {
  kProgram,   // the program's own voice, also at another loudness
  kComputer,  // a computer voice has spoken it here
  kOwn,       // a person has recorded it, or taken it in
  kUnknown,
};

/// Where a clip comes from. Texts that nobody noted are "".
struct ClipOrigin {
  ClipOwner owner = ClipOwner::kUnknown;
  std::string day = {};   // "2026-11-22"
  std::string text = {};  // what the computer was given to speak
  std::string voice = {};
  std::int16_t rate = 0;  // -10 .. 10

  bool operator==(const ClipOrigin&) const = default;
};

/// What becomes of notes that are there and cannot be read.
enum class UnreadNotes { kThrow, kAreMissed };

/// Whose the clips of a program directory are, as voices/origins.txt there notes it. Clips are
/// named by their path below the clip folder, "300.wav" or "exercise/Squat.WAV", without regard to
/// case.
class ClipOrigins {
 public:
  /// `programDirectory` ends with the separator; "" is the current one. Without the file there are
  /// no notes. When it cannot be read, throws FileError; or Fault says why, and the owner of what
  /// the program did not bring is unknown.
  explicit ClipOrigins(const std::string& programDirectory,
                       UnreadNotes unread = UnreadNotes::kThrow);

  /// Why the notes could not be read.
  const std::optional<FileError>& Fault() const { return fault_; }

  /// A note counts only while the clip is the one that was noted. Without one, a clip as the
  /// program brought it is the program's, another word is a person's own, another name unknown.
  ClipOrigin Of(const std::string& file, std::span<const Byte> content) const;

  /// What the computer was given to speak for this file, whatever clip lies there now.
  std::optional<ClipOrigin> LastSpoken(const std::string& file) const;

  /// Drops the notes on what lay there before. `file` is spelled as in the folder.
  void Set(const std::string& file, std::span<const Byte> content, const ClipOrigin& origin);

  /// Adds the notes that Encode made for another directory. Those on the clips that are here stay,
  /// so that it does not matter which of both will be in place.
  void AddNotesOf(std::string_view encoded);

  /// The file of the notes. Lines that were not understood stay. Throws the Fault.
  std::string Encode() const;

 private:
  struct Note {
    std::string file;
    ClipOrigin origin;
  };

  void ReadFile(const std::string& path);
  void Read(std::string_view line);
  bool IsAnotherClip(const std::string& noted, const std::string& file) const;

  std::string directory_;
  BroughtFiles brought_;
  std::optional<FileError> fault_;
  using Key = std::pair<std::u32string, std::string>;  // the file without regard to case; checksum
  std::map<Key, Note> notes_;
  std::set<std::string, std::less<>> others_;  // lines
};

/// Notes where the clip in the program directory, which must be current, comes from. A failure is
/// ignored: nothing depends on the notes.
void NoteClipOrigin(const std::string& file, const ClipOrigin& origin) noexcept;

}  // namespace repvolta
