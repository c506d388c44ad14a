#include "clips/ClipMaker.h"

#include <optional>

#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/WholeFile.h"
#include "clips/ClipSound.h"
#include "clips/VoiceLevel.h"
#include "clips/Word.h"
#include "sound/WavReader.h"

namespace repvolta {
namespace {

constexpr std::size_t kLargestRecording = std::size_t{256} * 1024 * 1024;
constexpr double kLongestWord = 120;  // seconds

void WriteClip(const std::string& path, const Sound& sound) {
  WriteWholeFile(path, EncodeWav(sound, kClipFormat));
}

[[noreturn]] void ThrowSilent(const std::string& source) {
  throw ClipError(source + " has only silence");
}

Sound WordOf(const Sound& speech, const std::string& source) {
  Sound word = TrimToWord(speech);
  if (word.samples.empty()) ThrowSilent(source);
  return word;
}

[[noreturn]] void ThrowUnusable(const std::string& recording, const std::string& reason) {
  throw ClipError(recording + " cannot be used: " + reason);
}

/// The clip of a recording, which errors call by the given name.
Bytes ClipOfNamed(const std::string& name, const SoundSource& recording, double loudness) {
  const std::optional<Word> word = FindWord(recording);
  if (!word) ThrowSilent(name);
  if (Seconds(*word) > kLongestWord) {
    ThrowUnusable(name, "From the first to the last sound it lasts longer than two minutes");
  }
  std::vector<Sound> clip;
  clip.push_back(CutWord(recording, *word));
  LevelClips(clip, loudness);
  return EncodeWav(clip.front(), kClipFormat);
}

}  // namespace

void MakeClips(const Speaker& speaker, const std::vector<ClipWords>& clips,
               const std::string& folder) {
  std::vector<Sound> sounds;
  sounds.reserve(clips.size());
  for (const ClipWords& clip : clips) {
    sounds.push_back(clip.words.empty()
                         ? WordlessClip()
                         : WordOf(speaker.engine->Speak(clip.words, speaker.voice, 1), clip.file));
  }
  LevelClips(sounds);
  for (std::size_t i = 0; i < clips.size(); ++i) {
    const std::string path = folder + "/" + clips[i].file;
    MakeFolders(FolderOf(path));
    WriteClip(path, sounds[i]);
  }
}

Bytes ClipOf(const SoundSource& recording, double loudness) {
  return ClipOfNamed("The recording", recording, loudness);
}

void MakeClipOfRecording(const std::string& recording, const std::string& clip) {
  const Bytes file = ReadWholeFile(recording, kLargestRecording);
  try {
    const WavSource sound(file);
    WriteWholeFile(clip, ClipOfNamed(recording, sound, LoudnessOfVoice(VoiceOfClip(clip))));
  } catch (const WavError& error) {
    ThrowUnusable(recording, error.what());
  }
}

}  // namespace repvolta
