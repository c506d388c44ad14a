#include "editing/ProgramVoiceCommand.h"

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <utility>

#include "base/FileNames.h"
#include "base/ProgramFiles.h"
#include "base/Text.h"
#include "base/WholeFile.h"
#include "clips/VoiceLevel.h"
#include "editing/ChangeClips.h"
#include "voices/KeptRecordings.h"
#include "voices/ProgramVoice.h"

namespace repvolta {
namespace {

constexpr const char* kTitle = "Back to the Program's Voice";
constexpr std::size_t kMostNames = 10;
constexpr std::size_t kLongestClip = 32U << 20;  // bytes

/// What becomes of the clips.
struct WayBack {
  ClipChange change;
  std::vector<std::string> strangers;  // names of which the program has no clip, as paths
};

void Add(const std::string& clip, double loudness, ProgramVoice& program, WayBack& way) {
  const auto present = FindFile(kClipFolder + clip);
  auto next = program.ClipFor(clip, loudness);
  if (next) {
    const bool isThere = present && ReadWholeFile(*present, kLongestClip) == next->content;
    if (!isThere) way.change.clips.push_back(std::move(*next));
  } else if (present && clip.starts_with(kNameClipSubfolder)) {
    way.strangers.push_back(*present);
  }
}

/// Nothing when the person stops it.
std::optional<WayBack> Plan(const VoiceServices& services, const std::vector<std::string>& clips) {
  WayBack way;
  try {
    services.editor.dialogs.ShowLongWork("Fetching the program's voice ...",
                                         [&](const ReportWork& report) {
                                           ProgramVoice program(services.programVoice);
                                           const double loudness = LoudnessOfVoice(kClipFolder);
                                           for (std::size_t i = 0; i < clips.size(); ++i) {
                                             report(static_cast<int>(i * 100 / clips.size()));
                                             Add(clips[i], loudness, program, way);
                                           }
                                         });
  } catch (const WorkStopped&) {
    return std::nullopt;
  }
  return way;
}

std::string NamesOf(const std::vector<std::string>& paths) {
  std::string names;
  for (std::size_t i = 0; i < std::min(paths.size(), kMostNames); ++i) {
    names += (i == 0 ? "" : ", ") + ShownOnOneLine(BaseName(paths[i]));
  }
  if (paths.size() > kMostNames) {
    names += " and " + std::to_string(paths.size() - kMostNames) + " more";
  }
  return names;
}

bool AskToRemove(const VoiceServices& services, const std::vector<std::string>& strangers) {
  const bool isOne = strangers.size() == 1;
  const std::string what = isOne ? "this name" : "these names";
  return services.editor.dialogs.Confirm("The program has no clip of " + what + ": " +
                                             NamesOf(strangers) + ".\r\rRemove " +
                                             (isOne ? "its clip" : "their clips") +
                                             ", so that the next update has the computer speak " +
                                             what + " anew? Recordings of your own are kept.",
                                         kTitle);
}

std::string DoneText(const ClipChange& change, std::size_t kept) {
  std::string text;
  const std::size_t back = change.clips.size();
  const std::size_t removed = change.removed.size();
  if (back > 0) text = Counted(back, "clip is", "clips are") + " the program's again.";
  if (removed > 0) {
    if (!text.empty()) text += "\r";
    text += Counted(removed, "name is", "names are") + " spoken anew by the next update.";
  }
  if (kept > 0) {
    text += "\r\r" +
            Counted(kept, "recording of yours is kept as a clip",
                    "recordings of yours are kept as clips") +
            " of the voice \"" + VoiceOfKept(change) + "\".";
  }
  return text;
}

}  // namespace

bool BackToProgramVoice(const VoiceServices& services, const std::vector<std::string>& clips) {
  if (services.programVoice.empty()) {
    throw std::runtime_error(
        "The program's own clips are not here, so nothing was changed. Install Repvolta again to "
        "get them back.");
  }
  MakeProgramDirectoryCurrent(services.editor.State());
  std::optional<WayBack> way = Plan(services, clips);
  if (!way) return false;
  ClipChange& change = way->change;
  if (!way->strangers.empty() && AskToRemove(services, way->strangers)) {
    change.removed = way->strangers;
  } else if (change.clips.empty()) {
    if (way->strangers.empty()) {
      services.editor.dialogs.ShowMessage("What you chose is the program's voice already.", kTitle);
    }
    return false;
  }
  MakeProgramDirectoryCurrent(services.editor.State());
  const std::size_t kept = KeepRecordings("", change);
  ChangeClips(services.editor.program, change);
  services.editor.dialogs.ShowMessage(DoneText(change, kept), kTitle);
  return true;
}

}  // namespace repvolta
