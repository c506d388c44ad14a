#include "editing/TakeInVoice.h"

#include <functional>
#include <vector>

#include "base/FileNames.h"
#include "base/Text.h"
#include "clips/VoiceCheck.h"
#include "editing/VoiceTexts.h"
#include "voices/ReadVoice.h"
#include "voices/VoiceStage.h"
#include "voices/WholeVoices.h"

namespace repvolta {
namespace {

constexpr const char* kTitle = "Take In a Voice";

VoiceWatch WatchOf(const ReportWork& report) {
  return [&report](std::size_t done, std::size_t all) {
    report(all == 0 ? 0 : static_cast<int>(done * 100 / all));
  };
}

bool IsUnusable(ClipFault fault) {
  return fault == ClipFault::kUnreadable || fault == ClipFault::kNoWav ||
         fault == ClipFault::kTooLong;
}

/// One voice that is being taken in.
class TakingIn {
 public:
  using Read = std::vector<std::string> (*)(const std::string& path, const VoiceReading& reading);

  explicit TakingIn(const VoiceServices& services) : dialogs_(services.editor.dialogs) {}

  std::string Run(const std::string& path, Read read) {
    Fill(path, read);
    DropUnusable();
    if (!Convert()) return "";
    std::string name = AskName(path);
    if (name.empty() || !dialogs_.Confirm(Summary(name), kTitle)) return "";
    dialogs_.ShowLongWork("Taking in the voice ...",
                          [&](const ReportWork& report) { stage_.Commit(name, WatchOf(report)); });
    return name;
  }

 private:
  void Fill(const std::string& path, Read read) {
    dialogs_.ShowLongWork("Looking at the clips ...", [&](const ReportWork& report) {
      leftOut_ =
          read(path, {.take = [&](const std::string& clip,
                                  std::span<const Byte> content) { stage_.Add(clip, content); },
                      .watch = WatchOf(report)});
      check_ = CheckVoice(stage_.Folder());
    });
  }

  void DropUnusable() {
    for (const ClipFinding& finding : check_.findings) {
      if (!IsUnusable(finding.fault)) continue;
      stage_.Drop(finding.file);
      leftOut_.push_back(finding.file + " " + finding.words);
    }
  }

  std::vector<std::string> OfOtherFormat() const {
    std::vector<std::string> clips;
    for (const ClipFinding& finding : check_.findings) {
      if (finding.fault == ClipFault::kOtherFormat) clips.push_back(finding.file);
    }
    return clips;
  }

  /// False when the person cancels.
  bool Convert() {
    const std::vector<std::string> clips = OfOtherFormat();
    if (!clips.empty()) {
      const auto answer =
          dialogs_.Choose(Counted(clips.size(), "file") + " of another format than clips:", kTitle,
                          {"Make clips of them", "Leave them out"});
      if (!answer) return false;
      if (*answer == 0) {
        MakeClips(clips);
      } else {
        for (const std::string& clip : clips) Drop(clip, " has another format");
      }
    }
    check_ = CheckVoice(stage_.Folder());
    return true;
  }

  void MakeClips(const std::vector<std::string>& clips) {
    dialogs_.ShowLongWork("Making clips ...", [&](const ReportWork& report) {
      for (const std::string& failure : stage_.Convert(clips, WatchOf(report))) {
        leftOut_.push_back(failure);
      }
    });
  }

  void Drop(const std::string& clip, const char* why) {
    stage_.Drop(clip);
    leftOut_.push_back(clip + why);
  }

  std::string AskName(const std::string& path) {
    std::string name = FreeVoiceName(BaseNameOf(path));
    while (true) {
      name = std::string(TrimBlanks(
          dialogs_.AskText("What is the voice called?", kTitle,
                           {.now = "It is listed under this name.", .kept = WhyNotKept}, name)));
      const std::string why = name.empty() ? "" : WhyNoVoiceName(name);
      if (why.empty()) return name;
      dialogs_.ShowMessage(why, kTitle);
    }
  }

  static std::string BaseNameOf(const std::string& path) {
    const std::string name = FileName(WithoutSeparator(path));
    return FoldCase(name).ends_with(U".zip") ? BaseName(name) : name;
  }

  static std::string WhyNotKept(std::string_view answer) {
    const std::string name(TrimBlanks(answer));
    const std::string why = WhyNoVoiceName(name);
    return why.empty() ? "Will be taken in as \"" + name + "\"." : why;
  }

  std::string Summary(const std::string& name) const {
    std::vector<std::string> missing;
    std::vector<std::string> faults;
    for (const ClipFinding& finding : check_.findings) {
      if (finding.fault == ClipFault::kMissing) {
        missing.push_back(finding.file);
      } else {
        faults.push_back(finding.file + " " + finding.words);
      }
    }
    std::string text = "\"" + name + "\" has " + Counted(check_.words, "word") + " and " +
                       Counted(check_.names, "name") + " of exercises.";
    if (!missing.empty()) {
      text += "\r\rThe program's voice speaks what it lacks: " + WordList(missing) + ".";
    }
    if (!faults.empty()) text += "\r\rNot quite as they should be:" + FirstLines(faults);
    if (!leftOut_.empty()) text += "\r\rLeft out:" + FirstLines(leftOut_);
    return text + "\r\rTake it in?";
  }

  Dialogs& dialogs_;
  VoiceStage stage_;
  std::vector<std::string> leftOut_;  // a line each
  VoiceCheck check_;
};

std::string TakeIn(const VoiceServices& services, const std::string& path, TakingIn::Read read) {
  if (path.empty()) return "";
  MakeProgramDirectoryCurrent(services.editor.State());
  try {
    return TakingIn(services).Run(path, read);
  } catch (const WorkStopped&) {
    return "";
  }
}

}  // namespace

std::string TakeInVoiceFolder(const VoiceServices& services) {
  const std::string folder = services.editor.dialogs.SelectDirectory(
      {.purpose = "Select the folder with the clips of the voice.",
       .start = "",
       .figure = FolderQuestion::Figure::kRoom});
  return TakeIn(services, folder, ReadVoiceFolder);
}

std::string TakeInVoiceArchive(const VoiceServices& services) {
  const std::string file = services.editor.dialogs.ChooseFileToOpen({.name = "VoiceFileDialog",
                                                                     .title = kTitle,
                                                                     .file = "",
                                                                     .filter = "Voices (*.zip)",
                                                                     .suffix = ".zip"});
  return TakeIn(services, file, ReadVoiceArchive);
}

}  // namespace repvolta
