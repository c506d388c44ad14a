#include "clips/VoiceCommand.h"

#include <algorithm>
#include <exception>

#include "base/Text.h"
#include "clips/ClipMaker.h"

namespace repvolta {
namespace {

constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kWrongUse = 2;

constexpr std::string_view kUsage =
    "usage: repvolta-voice make WORDS FOLDER [NAMES ...]\n"
    "       repvolta-voice convert RECORDING CLIP\n"
    "\n"
    "make     speaks the clips of the word list WORDS (a line: clip name, words) into\n"
    "         FOLDER, and those of the exercise name lists NAMES (a line: a name) into\n"
    "         FOLDER/exercise\n"
    "convert  makes a clip of a WAV recording of any format: silence trimmed, 16 kHz,\n"
    "         16 bit, mono, as loud as the other clips\n";

/// The same name may be in several lists.
void AddNew(const std::vector<ClipWords>& found, std::vector<ClipWords>& clips) {
  for (const ClipWords& clip : found) {
    const auto isSame = [&clip](const ClipWords& other) { return other.file == clip.file; };
    if (std::none_of(clips.begin(), clips.end(), isSame)) clips.push_back(clip);
  }
}

void Make(const std::vector<std::string>& arguments, SpeechEngine& engine, std::ostream& output) {
  std::vector<ClipWords> clips = ReadWordList(arguments[1]);
  for (std::size_t i = 3; i < arguments.size(); ++i) {
    AddNew(ReadNameList(arguments[i]), clips);
  }
  MakeClips(engine, clips, arguments[2]);
  output << clips.size() << " clips made in " << ShownOnOneLine(arguments[2]) << "\n";
}

}  // namespace

int RunVoiceCommand(const std::vector<std::string>& arguments, SpeechEngine& engine,
                    std::ostream& output, std::ostream& errors) {
  const std::string command = arguments.empty() ? "" : arguments.front();
  const bool wantsHelp = command == "--help" && arguments.size() == 1;
  const bool makes = command == "make" && arguments.size() >= 3;
  const bool converts = command == "convert" && arguments.size() == 3;
  if (wantsHelp) {
    output << kUsage;
    return kDone;
  }
  if (!makes && !converts) {
    errors << "repvolta-voice: " << (command.empty() ? "nothing to do" : "not called rightly")
           << "\n"
           << kUsage;
    return kWrongUse;
  }
  try {
    if (makes) Make(arguments, engine, output);
    if (converts) MakeClipOfRecording(arguments[1], arguments[2]);
    return kDone;
  } catch (const std::exception& error) {
    errors << "repvolta-voice: " << ShownOnOneLine(error.what()) << "\n";
    return kFailed;
  }
}

}  // namespace repvolta
