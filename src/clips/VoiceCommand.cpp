#include "clips/VoiceCommand.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <exception>
#include <iomanip>

#include "base/Text.h"
#include "clips/ClipMaker.h"
#include "clips/VoiceCheck.h"

namespace repvolta {
namespace {

constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kWrongUse = 2;

constexpr std::string_view kUsage =
    "usage: repvolta-voice make [--engine ENGINE] [--voice VOICE] WORDS FOLDER [NAMES ...]\n"
    "       repvolta-voice convert RECORDING CLIP\n"
    "       repvolta-voice check FOLDER\n"
    "       repvolta-voice voices\n"
    "\n"
    "make     speaks the clips of the word list WORDS (a line: clip name, words) into\n"
    "         FOLDER, and those of the exercise name lists NAMES (a line: a name) into\n"
    "         FOLDER/exercise\n"
    "convert  makes a clip of a WAV recording of any format: silence trimmed, 16 kHz,\n"
    "         16 bit, mono, as loud as the other clips\n"
    "check    tells what is missing in the clips of FOLDER or unlike the others\n"
    "voices   lists the voices that VOICE can be\n";

/// The command line behind the name of the command.
struct Call {
  VoiceChoice choice;
  std::vector<std::string> operands;
};

struct Surroundings {
  const NamedEngines& engines;
  std::ostream& output;
  std::ostream& errors;
};

/// The same name may be in several lists.
void AddNew(const std::vector<ClipWords>& found, std::vector<ClipWords>& clips) {
  for (const ClipWords& clip : found) {
    const auto isSame = [&clip](const ClipWords& other) { return other.file == clip.file; };
    if (std::none_of(clips.begin(), clips.end(), isSame)) clips.push_back(clip);
  }
}

void Tell(std::ostream& errors, const std::string& line) {
  errors << "repvolta-voice: " << ShownOnOneLine(line) << "\n";
}

int Make(const Call& call, const Surroundings& around) {
  const std::string& words = call.operands[0];
  const std::string& folder = call.operands[1];
  std::vector<ClipWords> clips = ReadWordList(words);
  const std::vector<std::string> remarks = RemarksOn(clips, words);
  for (std::size_t i = 2; i < call.operands.size(); ++i) {
    AddNew(ReadNameList(call.operands[i]), clips);
  }
  MakeClips(FindSpeaker(around.engines, call.choice), clips, folder);
  around.output << clips.size() << " clips made in " << ShownOnOneLine(folder) << "\n";
  for (const std::string& remark : remarks) Tell(around.errors, remark);
  return kDone;
}

int Convert(const Call& call, const Surroundings& /*around*/) {
  MakeClipOfRecording(call.operands[0], call.operands[1]);
  return kDone;
}

std::string Summary(const VoiceCheck& check) {
  std::string summary =
      std::to_string(check.words) + " words and " + std::to_string(check.names) + " names";
  if (std::isfinite(check.loudness)) {
    summary += ", at " + std::to_string(std::lround(check.loudness)) + " LUFS";
  }
  const std::size_t faults = check.findings.size();
  return summary + ": " +
         (faults == 0 ? "all is well"
                      : std::to_string(faults) + (faults == 1 ? " fault" : " faults"));
}

int Check(const Call& call, const Surroundings& around) {
  const VoiceCheck check = CheckVoice(call.operands[0]);
  for (const ClipFinding& finding : check.findings) {
    around.output << ShownOnOneLine(finding.file + " " + finding.words) << "\n";
  }
  around.output << Summary(check) << "\n";
  return check.findings.empty() ? kDone : kFailed;
}

int ListVoices(const Call& /*call*/, const Surroundings& around) {
  bool areThere = false;
  for (const NamedEngine& engine : around.engines) {
    for (const EngineVoice& voice : engine.engine->Voices()) {
      areThere = true;
      around.output << std::left << std::setw(16) << ShownOnOneLine(ShortName(voice)) << " "
                    << ShownOnOneLine(voice.name) << "\n";
    }
  }
  if (!areThere) throw ClipError("no speech engine is installed");
  return kDone;
}

struct Command {
  std::string_view name;
  std::size_t fewest;  // operands
  std::size_t most;
  bool takesVoice;
  int (*run)(const Call&, const Surroundings&);  // returns the exit status
};

constexpr std::array kCommands = {
    Command{.name = "make", .fewest = 2, .most = SIZE_MAX, .takesVoice = true, .run = Make},
    Command{.name = "convert", .fewest = 2, .most = 2, .takesVoice = false, .run = Convert},
    Command{.name = "check", .fewest = 1, .most = 1, .takesVoice = false, .run = Check},
    Command{.name = "voices", .fewest = 0, .most = 0, .takesVoice = false, .run = ListVoices}};

/// Takes the options off the front of `operands`. False when one of them has no value.
bool TakeOptions(Call& call) {
  while (!call.operands.empty()) {
    const std::string option = call.operands.front();
    if (option != "--engine" && option != "--voice") return true;
    if (call.operands.size() < 2 || call.operands[1].empty()) return false;
    (option == "--engine" ? call.choice.engine : call.choice.voice) = call.operands[1];
    call.operands.erase(call.operands.begin(), call.operands.begin() + 2);
  }
  return true;
}

/// Nothing when the arguments are wrong.
const Command* Parse(const std::vector<std::string>& arguments, Call& call) {
  if (arguments.empty()) return nullptr;
  const auto* command = std::ranges::find(kCommands, arguments.front(), &Command::name);
  if (command == kCommands.end()) return nullptr;
  call.operands.assign(arguments.begin() + 1, arguments.end());
  if (command->takesVoice && !TakeOptions(call)) return nullptr;
  const std::size_t count = call.operands.size();
  return count < command->fewest || count > command->most ? nullptr : command;
}

}  // namespace

int RunVoiceCommand(const std::vector<std::string>& arguments, const NamedEngines& engines,
                    std::ostream& output, std::ostream& errors) {
  if (arguments == std::vector<std::string>{"--help"}) {
    output << kUsage;
    return kDone;
  }
  Call call;
  const Command* const command = Parse(arguments, call);
  if (command == nullptr) {
    errors << "repvolta-voice: "
           << (arguments.empty() || arguments.front().empty() ? "nothing to do"
                                                              : "not called rightly")
           << "\n"
           << kUsage;
    return kWrongUse;
  }
  try {
    return command->run(call, {engines, output, errors});
  } catch (const std::exception& error) {
    Tell(errors, error.what());
    return kFailed;
  }
}

}  // namespace repvolta
