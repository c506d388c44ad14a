#include "speech/EngineProgram.h"

#include "base/File.h"
#include "base/WholeFile.h"
#include "sound/WavReader.h"
#include "speech/PrivateFolder.h"
#include "speech/SpeechSynthesizer.h"

namespace repvolta {
namespace {

constexpr std::size_t kLargestSound = std::size_t{64} * 1024 * 1024;

}  // namespace

std::string EngineProgram::Output(const std::vector<std::string>& arguments) const {
  const ChildResult result =
      processes_.Run({.program = program_, .arguments = arguments, .limit = limit_});
  return result.end == ChildEnd::kExited && result.exitCode == 0 ? result.output : "";
}

Sound EngineProgram::Speak(const std::string& text, const Arguments& arguments) const {
  if (text.empty()) throw SpeechError("There is nothing in the text that " + program_ + " can say");
  const PrivateFolder folder;
  const Files files{folder.Path() + kSpokenTextFile, folder.Path() + kSpokenSoundFile};
  WriteWholeFile(files.text, AsBytes(text + "\n"));
  Run(arguments(files), files.text);
  Sound sound = ReadSound(files.sound);
  if (Peak(sound) == 0) throw SpeechError(program_ + " gave only silence for \"" + text + "\"");
  return sound;
}

void EngineProgram::Run(const std::vector<std::string>& arguments,
                        const std::string& inputFile) const {
  const ChildResult result = processes_.Run({program_, arguments, inputFile, limit_});
  switch (result.end) {
    case ChildEnd::kNotStarted:
      throw SpeechError(program_ + " could not be started");
    case ChildEnd::kCrashed:
      throw SpeechError(program_ + " crashed");
    case ChildEnd::kKilledAtLimit:
      throw SpeechError(program_ + " did not come to an end and was stopped");
    case ChildEnd::kExited:
      break;
  }
  if (result.exitCode == 0) return;
  throw SpeechError(program_ + " failed with exit code " + std::to_string(result.exitCode));
}

Sound EngineProgram::ReadSound(const std::string& file) const {
  if (!FileExists(file)) throw SpeechError(program_ + " wrote no sound");
  const Bytes bytes = ReadWholeFile(file, kLargestSound + 1);
  if (bytes.size() > kLargestSound) throw SpeechError(program_ + " wrote too much sound");
  try {
    return ReadWav(bytes);
  } catch (const WavError& error) {
    throw SpeechError(program_ + " wrote a file that cannot be used: " + error.what());
  }
}

}  // namespace repvolta
