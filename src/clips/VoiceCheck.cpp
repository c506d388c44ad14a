#include "clips/VoiceCheck.h"

#include <algorithm>
#include <cerrno>
#include <optional>

#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/ProgramFiles.h"
#include "clips/MeasuredClip.h"
#include "clips/WordClips.h"

namespace repvolta {
namespace {

bool IsThere(const MeasuredClip& clip) {
  return !clip.finding || clip.finding->fault != ClipFault::kMissing;
}

}  // namespace

VoiceCheck CheckVoice(const std::string& folder) {
  if (!FolderExists(folder)) throw FileError(folder, "could not be read", ENOENT);
  std::vector<MeasuredClip> clips;
  for (const std::string& word : WordClips()) clips.push_back(MeasureClip(folder, word));
  VoiceCheck check;
  check.words = static_cast<std::size_t>(std::ranges::count_if(clips, IsThere));
  const std::vector<std::string> names =
      ListFiles(folder + "/" + kNameClipSubfolder, kNameClipExtension);
  check.names = names.size();
  for (const std::string& name : names)
    clips.push_back(MeasureClip(folder, kNameClipSubfolder + name));
  check.loudness = MiddleLoudness(clips);
  for (const MeasuredClip& clip : clips) {
    const std::optional<ClipFinding> finding = FindingBeside(clip, check.loudness);
    if (finding) check.findings.push_back(*finding);
  }
  return check;
}

}  // namespace repvolta
