#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "app/ClipOrigins.h"
#include "base/FileError.h"
#include "clips/MeasuredClip.h"
#include "instruction/SpokenWords.h"

namespace repvolta {

/// A clip of the voice, or a word or name that has none yet.
struct ClipRow {
  std::string file;  // below the clip folder: "300.wav", "exercise/Squat.WAV"
  Clip clip;         // as instructions name it
  std::string said;  // "three hundred"; the name of an exercise
  bool isMissing = false;
  bool isRead = false;             // only then the rest is known
  double seconds = 0;              // 0 when its sound cannot be read
  std::optional<double> loudness;  // LUFS; nothing when it cannot be measured
  ClipOrigin origin;
  std::string fault;  // to follow its name: "is missing"; "" for none

  bool operator==(const ClipRow&) const = default;
};

/// A recogniser has understood the program's own clips; of others nobody knows.
bool IsUnderstood(const ClipRow& row);

/// All words and names of the voice: the words in their order, then the names in theirs.
class ClipTable {
 public:
  /// Lists them, of `names` also those without a clip. The program directory must be current until
  /// all are read. Throws FileError when the folder cannot be read.
  explicit ClipTable(const std::vector<std::string>& names);

  /// Reads and measures the next clip, which takes milliseconds; after the last one it compares
  /// them. Returns false when nothing is left to do.
  bool ReadNext();

  /// Why whose the clips are is not known.
  const std::optional<FileError>& Fault() const { return origins_.Fault(); }

  std::size_t AreRead() const { return measured_.size(); }

  /// Of clips that are not read yet, only what is said.
  const std::vector<ClipRow>& Rows() const { return rows_; }

 private:
  void Read(ClipRow& row);
  void Compare();

  ClipOrigins origins_;
  std::vector<ClipRow> rows_;
  std::vector<MeasuredClip> measured_;  // of the first rows
};

}  // namespace repvolta
