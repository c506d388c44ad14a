#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/ClipOrigins.h"
#include "base/Bytes.h"
#include "base/FileError.h"
#include "voices/ProgramVoice.h"
#include "voices/PutClips.h"

namespace repvolta {

/// The clips of a program directory at a level of one's choice. Each is made from what it was
/// before its first change: the program's clips from the program's own, others from the original
/// that the first change keeps, so that changes never add up.
class VoiceLevels {
 public:
  /// `programDirectory` ends with the separator; "" is the current one. Measures the clips. What
  /// notes cannot be read is in Fault. Throws FileError when the clips cannot be read.
  VoiceLevels(std::string programDirectory, ProgramVoice program);

  /// Why it is not known whose the clips are or what was made of them; then nothing can be changed.
  const std::optional<FileError>& Fault() const { return fault_; }

  /// The level in LUFS that was chosen last; kVoiceAsMade when none was, or when the clips have
  /// become others since.
  int Chosen() const { return chosen_; }

  /// Is told how many clips of all are done.
  using Report = std::function<void(std::size_t done, std::size_t all)>;

  /// What brings all clips to a level, for PutClips; at kVoiceAsMade the very bytes that they had.
  /// Clips that are as they should be are not in it. Throws FileError, also the Fault, and what
  /// `report` throws.
  ClipChange ChangeTo(int level, const Report& report = {}) const;

  /// One clip at that level; nothing when there is none. Throws FileError.
  std::optional<Bytes> ClipAt(const std::string& file, int level) const;

  /// The clips, below the clip folder: the words, then the names.
  std::vector<std::string> Clips() const;

 private:
  /// Of a clip that was changed.
  struct Note {
    std::string file;
    std::string checksum;   // of what the change made of it
    double made = 0;        // the level of the voice that its original was made for
    bool isRaised = false;  // the voice was changed already then
  };
  /// By the file without regard to case, and as it is spelled: two clips may differ in case only.
  using Notes = std::map<std::pair<std::u32string, std::string>, Note>;

  struct KeptClip {
    const Note& note;
    Bytes original;
  };

  /// What a clip is made from.
  struct Source {
    Bytes content;  // as the clip is now
    Bytes original;
    ClipOrigin origin;
    double made = 0;
    bool isRaised = false;
    bool isProgram = false;  // the program itself has the original
    std::string kept = {};   // the file below the originals that has it; "" for none

    Bytes At(int level) const;
  };

  static std::pair<std::u32string, std::string> KeyOf(const std::string& file);

  void ReadNotes();
  void Read(std::string_view line);
  void Measure();
  Source SourceOf(const std::string& file) const;
  std::optional<KeptClip> OriginalAt(const Note& note, const Bytes& content) const;
  std::optional<KeptClip> KeptOriginal(const std::string& file, const Bytes& content) const;
  void AddTo(ClipChange& change, Notes& notes, const std::string& file, int level) const;

  std::string directory_;
  ProgramVoice program_;
  ClipOrigins origins_;
  std::optional<FileError> fault_;
  Notes notes_;
  int chosen_;
  double made_;  // the level that a new clip is made for
};

}  // namespace repvolta
