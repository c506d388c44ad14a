#include "editing/Voices.h"

#include <cmath>
#include <optional>
#include <utility>

#include "base/Days.h"
#include "base/FileError.h"
#include "base/ProgramFiles.h"
#include "base/Text.h"
#include "base/WholeFile.h"
#include "editing/ChangeClips.h"
#include "editing/VoiceTexts.h"
#include "speech/PrivateFolder.h"
#include "voices/VoiceSample.h"

namespace repvolta {
namespace {

constexpr const char* kUseTitle = "Use a Voice";
constexpr const char* kRenameTitle = "Rename a Voice";
constexpr const char* kRemoveTitle = "Remove a Voice";
constexpr int kHalf = 50;  // per cent

/// "Kim is quieter than the clips in use by 6 dB."; "" when nobody would hear it.
std::string LoudnessText(const std::string& voice, double difference) {
  if (std::abs(difference) < kHeardDifference) return "";
  return ShownVoice(voice) + " is " + (difference > 0 ? "louder" : "quieter") +
         " than the clips in use by " + std::to_string(std::lround(std::abs(difference))) + " dB.";
}

/// False when the person cancels.
bool AskLoudness(const VoiceServices& services, const VoicesHere& here, ChoiceOfVoice& choice) {
  std::optional<double> inUse;
  std::optional<double> chosen;
  services.editor.dialogs.ShowLongWork("Comparing the voices ...", [&](const ReportWork& report) {
    inUse = HeardLoudness(kClipFolder);
    report(kHalf);
    chosen = HeardLoudness(OwnFolderOf(here, choice.voice));
  });
  if (!inUse || !chosen) return true;
  const std::string text = LoudnessText(choice.voice, *chosen - *inUse);
  if (text.empty()) return true;
  const auto answer = services.editor.dialogs.Choose(
      text, kUseTitle, {"Leave its clips as they are", "Make them as loud as the clips in use"});
  if (!answer) return false;
  if (*answer == 1) choice.loudness = inUse;
  return true;
}

/// The options file that says which voice is in use, to be put in place with the clips.
FileBesideClips OptionsWith(const EditedProgram& program, const std::string& voice) {
  if (program.state.OptionsAreUnread) {
    throw FileError(kOptionsFile, "could not be written", "It has options that could not be read");
  }
  OptionLines lines = program.state.Options;
  Put(lines, kVoiceInUse, voice);
  const std::string file = lines.File();
  return {kOptionsFile, Bytes(file.begin(), file.end())};
}

void Change(const VoiceServices& services, const VoicesHere& here, const ChoiceOfVoice& choice,
            ChangeOfVoice& plan) {
  const EditedProgram& program = services.editor.program;
  services.editor.dialogs.ShowLongWork(
      "Putting the clips in place ...", [&](const ReportWork& report) {
        plan = PlanChangeOfVoice(here, choice);
        report(kHalf);
        program.ReloadOptions();  // an update may have changed them meanwhile
        plan.change.files.push_back(OptionsWith(program, choice.voice));
        ChangeClips(program, plan.change, [&](std::size_t done, std::size_t all) {
          report(kHalf + static_cast<int>(done * kHalf / all));
        });
      });
  program.ReloadOptions();
}

std::string KeptText(const ChangeOfVoice& plan) {
  std::string voices;
  for (const std::string& voice : plan.keptIn) {
    voices += (voices.empty() ? "\"" : " and \"") + ShownOnOneLine(voice) + "\"";
  }
  return Counted(plan.kept, "recording") + (plan.kept == 1 ? " was" : " were") +
         " kept in the voice " + voices + ".";
}

/// Another window may have chosen it since it was listed.
bool IsInUse(const VoiceServices& services, const std::string& voice, const char* title) {
  const bool isInUse = VoicesOf(services).inUse == voice;
  if (isInUse) {
    services.editor.dialogs.ShowMessage("\"" + ShownVoice(voice) + "\" is in use now.", title);
  }
  return isInUse;
}

}  // namespace

VoicesHere VoicesOf(const VoiceServices& services) {
  MakeProgramDirectoryCurrent(services.editor.State());
  services.editor.program.ReloadOptions();
  return {services.programVoice, VoiceInUse(services.editor.State().Options)};
}

bool UseVoice(const VoiceServices& services, const std::string& voice) {
  const VoicesHere here = VoicesOf(services);
  ChoiceOfVoice choice{
      .voice = voice, .day = IsoDate(services.editor.program.clock.Today()), .loudness = {}};
  ChangeOfVoice plan;
  try {
    if (!AskLoudness(services, here, choice)) return false;
    Change(services, here, choice, plan);
  } catch (const WorkStopped&) {
    return false;
  }
  if (plan.kept > 0) services.editor.dialogs.ShowMessage(KeptText(plan), kUseTitle);
  return true;
}

std::string RenameVoiceAsked(const VoiceServices& services, const std::string& voice) {
  if (IsInUse(services, voice, kRenameTitle)) return voice;
  const AnswerHelp help{.now = "\"" + ShownVoice(voice) + "\" now."};
  std::string name(TrimBlanks(
      services.editor.dialogs.AskText("What is the voice called?", kRenameTitle, help, voice)));
  if (name.empty() || name == voice) return voice;
  const std::string why = WhyNoVoiceName(name, voice);
  if (!why.empty()) {
    services.editor.dialogs.ShowMessage(why, kRenameTitle);
    return voice;
  }
  RenameVoice(voice, name);
  return name;
}

bool RemoveVoiceAsked(const VoiceServices& services, const std::string& voice) {
  if (IsInUse(services, voice, kRemoveTitle)) return false;
  const std::string folder = services.editor.State().ProgramDirectory + FolderOfVoice(voice);
  const bool isSure =
      services.editor.dialogs.Confirm("Remove the voice \"" + ShownVoice(voice) + "\"?\rIts " +
                                          Counted(ClipsIn(FolderOfVoice(voice)).size(), "clip") +
                                          " will be deleted from\r" + ShownOnOneLine(folder),
                                      kRemoveTitle);
  if (isSure) RemoveVoice(voice);
  return isSure;
}

std::vector<std::string> CheckOfVoice(const VoiceServices& services, const std::string& voice) {
  const VoicesHere here = VoicesOf(services);
  VoiceCheck check;
  try {
    services.editor.dialogs.ShowLongWork("Checking the clips ...", [&](const ReportWork& report) {
      report(0);
      check = CheckVoice(OwnFolderOf(here, voice));
    });
  } catch (const WorkStopped&) {
    return {};
  }
  return LinesOf(check);
}

void ListenToVoice(const VoiceServices& services, const std::string& voice,
                   SoundPlayer::Ended ended) {
  const VoicesHere here = VoicesOf(services);
  const PrivateFolder folder;
  const std::string file = folder.Path() + kSpokenSoundFile;
  WriteWholeFile(file, SampleOfVoice(here, voice));
  // The player has read it when Play returns.
  services.player.Play(file, services.output(), std::move(ended));
}

}  // namespace repvolta
