#pragma once

#include <functional>
#include <string>
#include <vector>

#include "app/ProgramState.h"

namespace repvolta {

/// Whether a song can be copied by an update. Unknown: its disk has not answered yet.
enum class Presence { kThere, kGone, kUnknown };

/// A row of MusicList.
struct MusicRow {
  std::string path;
  Presence presence;

  bool operator==(const MusicRow&) const = default;
};

/// What a row's tool tip and a screen reader add to its path; "" for a song that is there.
std::string RemarkOf(const MusicRow& row);

/// "1 song is gone"; "" when none is.
std::string GoneSongsText(const std::vector<MusicRow>& rows);

/// What the tool tip and a screen reader add to each row of ExerciseRows: whether the name has no
/// recording, so that the computer speaks it; "" when it has one. The program directory must be
/// current.
std::vector<std::string> NameRemarks(const ProgramState& state);

}  // namespace repvolta
