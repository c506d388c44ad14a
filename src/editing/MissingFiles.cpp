#include "editing/MissingFiles.h"

#include <algorithm>
#include <exception>

#include "base/File.h"
#include "editing/ScreenTexts.h"
#include "instruction/Clips.h"

namespace repvolta {
namespace {

/// A disk that cannot tell is no reason to worry anybody: the update says what is wrong.
bool LacksRecording(const std::string& name) {
  try {
    return !FileExists(ClipFile({Clip::Kind::kName, name}));
  } catch (const std::exception&) {
    return false;
  }
}

}  // namespace

std::string RemarkOf(const MusicRow& row) {
  switch (row.presence) {
    case Presence::kGone:
      return "This song is gone: an update leaves it out.";
    case Presence::kUnknown:
      return "The disk of this song does not answer.";
    default:
      return {};
  }
}

std::string GoneSongsText(const std::vector<MusicRow>& rows) {
  const auto gone = std::ranges::count_if(
      rows, [](const MusicRow& row) { return row.presence == Presence::kGone; });
  if (gone == 0) return {};
  return gone == 1 ? "1 song is gone" : std::to_string(gone) + " songs are gone";
}

std::vector<std::string> NameRemarks(const ProgramState& state) {
  std::vector<std::string> remarks;
  for (const std::string& name : ExerciseRows(state)) {
    remarks.emplace_back(
        LacksRecording(name) ? "This name has no recording: the computer speaks it." : "");
  }
  return remarks;
}

}  // namespace repvolta
