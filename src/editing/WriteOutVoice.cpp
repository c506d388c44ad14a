#include "editing/WriteOutVoice.h"

#include <optional>
#include <vector>

#include "base/Folder.h"
#include "base/ProgramFiles.h"
#include "base/Text.h"
#include "clips/VoiceCheck.h"
#include "editing/ChooseTarget.h"
#include "editing/VoiceTexts.h"
#include "editing/Voices.h"
#include "voices/WriteVoice.h"

namespace repvolta {
namespace {

constexpr const char* kTitle = "Write Out a Voice";

enum class Form { kArchive, kFolder };

struct Wish {
  VoiceClips clips;
  Form form;
};

std::optional<Wish> AskWish(const VoiceServices& services, const std::string& voice) {
  const VoicesHere here = VoicesOf(services);
  struct Offer {
    std::string text;
    Wish wish;
  };
  std::vector<Offer> offers;
  const auto offer = [&](ClipsToWrite which, const std::string& name) {
    VoiceClips clips = ClipsOfVoice(here, voice, which);
    if (clips.empty()) return;
    const std::string text = name + ", " + Counted(clips.size(), "clip");
    offers.push_back({text + ", as a ZIP file", {clips, Form::kArchive}});
    offers.push_back({text + ", as a folder", {clips, Form::kFolder}});
  };
  offer(ClipsToWrite::kOwn, "Its own clips");
  offer(ClipsToWrite::kAll, "All clips, with those of the program");
  std::vector<std::string> texts;
  texts.reserve(offers.size());
  for (const Offer& one : offers) texts.push_back(one.text);
  const auto chosen = services.editor.dialogs.Choose(
      "What is to be written of " + ShownVoice(voice) + "?", kTitle, texts);
  if (!chosen) return std::nullopt;
  return offers.at(*chosen).wish;
}

/// What a person should know before it is given away.
bool ConfirmFaults(const VoiceServices& services, const std::string& voice) {
  const VoicesHere here = VoicesOf(services);
  const std::string folder = voice == here.inUse ? kClipFolder : OwnFolderOf(here, voice);
  VoiceCheck check;
  services.editor.dialogs.ShowLongWork("Checking the clips ...", [&](const ReportWork& report) {
    report(0);
    check = CheckVoice(folder);
  });
  return check.findings.empty() || services.editor.dialogs.Confirm(
                                       "Not all is as it should be:" + FirstLines(LinesOf(check)) +
                                           "\r\rWrite it out all the same?",
                                       kTitle);
}

/// A folder of this name that is not there yet.
std::string FreeFolder(const std::string& place, const std::string& name) {
  const std::string path = place + (place.ends_with('/') ? "" : "/") + name;
  std::string free = path;
  for (int i = 2; IsTaken(free); ++i) free = path + " " + std::to_string(i);
  return free;
}

std::string AskTarget(const VoiceServices& services, Form form, const std::string& name) {
  if (form == Form::kArchive) {
    return ChooseTarget(services.editor, {.name = "VoiceFileDialog",
                                          .title = kTitle,
                                          .file = name + ".zip",
                                          .filter = "Voices (*.zip)",
                                          .suffix = ".zip"});
  }
  const std::string place = services.editor.dialogs.SelectDirectory(
      {.purpose = "Select the folder in which the folder \"" + name + "\" is made.",
       .start = "",
       .figure = FolderQuestion::Figure::kRoom});
  return place.empty() ? "" : FreeFolder(place, name);
}

/// Returns why it may not survive a power cut.
std::string Write(const VoiceServices& services, const Wish& wish, const std::string& name,
                  const std::string& target) {
  std::string weakness;
  services.editor.dialogs.ShowLongWork("Writing the voice ...", [&](const ReportWork& report) {
    const VoiceWatch watch = [&](std::size_t done, std::size_t all) {
      report(static_cast<int>(done * 100 / all));
    };
    if (wish.form == Form::kArchive) {
      weakness = WriteVoiceArchive(wish.clips, name, target, watch);
    } else {
      WriteVoiceFolder(wish.clips, target, watch);
    }
  });
  return weakness;
}

}  // namespace

void WriteOutVoice(const VoiceServices& services, const std::string& voice) {
  const std::string name = voice.empty() ? kTheProgramsVoice : voice;
  try {
    const auto wish = AskWish(services, voice);
    if (!wish || !ConfirmFaults(services, voice)) return;
    const std::string target = AskTarget(services, wish->form, name);
    if (target.empty()) return;
    MakeProgramDirectoryCurrent(services.editor.State());
    const std::string weakness = Write(services, *wish, name, target);
    services.editor.dialogs.ShowMessage(ShownOnOneLine(target) + " holds " +
                                            Counted(wish->clips.size(), "clip") + "." +
                                            WeaknessText(weakness),
                                        kTitle);
  } catch (const WorkStopped&) {
    services.editor.dialogs.ShowMessage("Nothing was written.", kTitle);
  }
}

}  // namespace repvolta
