#include "platform/EngineProgram.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <stdlib.h>

#include "base/File.h"
#include "base/FileError.h"
#include "base/WholeFile.h"
#include "platform/SpeechSynthesizer.h"
#include "platform/WavReader.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLargestSound = std::size_t{64} * 1024 * 1024;

/// espeak-ng cuts off the names of its files at 199 bytes.
constexpr std::size_t kLongestFolder = 150;

/// The folder for temporary files, or the system's own when that one cannot be used.
fs::path TemporaryPlace() {
  std::error_code error;
  const fs::path place = fs::temp_directory_path(error);
  return error || place.string().size() > kLongestFolder ? fs::path(P_tmpdir) : place;
}

/// A folder that only this user can enter; deleted with all that is in it.
class PrivateFolder {
 public:
  PrivateFolder() {
    std::string pattern = (TemporaryPlace() / "repvolta-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw FileError(pattern, "could not be created", errno);
    path_ = pattern + "/";
  }
  ~PrivateFolder() {
    // A second time for what could not be deleted at first.
    std::error_code error;
    fs::remove_all(path_, error);
    if (error) fs::remove_all(path_, error);
  }
  PrivateFolder(const PrivateFolder&) = delete;
  PrivateFolder& operator=(const PrivateFolder&) = delete;

  const std::string& Path() const { return path_; }

 private:
  std::string path_;
};

}  // namespace

std::string EngineProgram::Output(const std::vector<std::string>& arguments) const {
  const ChildResult result =
      processes_.Run({.program = program_, .arguments = arguments, .limit = limit_});
  return result.end == ChildEnd::kExited && result.exitCode == 0 ? result.output : "";
}

Sound EngineProgram::Speak(const std::string& text, const Arguments& arguments) const {
  if (text.empty()) throw SpeechError("There is nothing in the text that " + program_ + " can say");
  const PrivateFolder folder;
  const Files files{folder.Path() + "text", folder.Path() + "sound.wav"};
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
