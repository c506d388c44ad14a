#include "clips/ClipMaker.h"

#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/WholeFile.h"
#include "clips/ClipSound.h"
#include "sound/WavReader.h"

namespace repvolta {
namespace {

constexpr std::size_t kLargestRecording = std::size_t{256} * 1024 * 1024;

void WriteClip(const std::string& path, const Sound& sound) {
  WriteWholeFile(path, EncodeWav(sound, kClipFormat));
}

Sound WordOf(const Sound& recording, const std::string& source) {
  Sound word = TrimToWord(recording);
  if (word.samples.empty()) throw ClipError(source + " has only silence");
  return word;
}

Sound ReadRecording(const std::string& path) {
  try {
    return ReadWav(ReadWholeFile(path, kLargestRecording));
  } catch (const WavError& error) {
    throw ClipError(path + " cannot be used: " + error.what());
  }
}

}  // namespace

void MakeClips(SpeechEngine& engine, const std::vector<ClipWords>& clips,
               const std::string& folder) {
  const std::vector<EngineVoice> voices = engine.Voices();
  if (voices.empty()) throw ClipError("no voice of flite is installed");
  std::vector<Sound> sounds;
  sounds.reserve(clips.size());
  for (const ClipWords& clip : clips) {
    sounds.push_back(WordOf(engine.Speak(clip.words, voices.front(), 1), clip.file));
  }
  LevelClips(sounds);
  for (std::size_t i = 0; i < clips.size(); ++i) {
    const std::string path = folder + "/" + clips[i].file;
    MakeFolders(FolderOf(path));
    WriteClip(path, sounds[i]);
  }
}

void MakeClipOfRecording(const std::string& recording, const std::string& clip) {
  std::vector<Sound> word = {WordOf(ReadRecording(recording), recording)};
  LevelClips(word);
  WriteClip(clip, word.front());
}

}  // namespace repvolta
