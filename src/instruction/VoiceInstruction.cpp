#include "instruction/VoiceInstruction.h"

#include <stdexcept>

#include "base/File.h"
#include "base/Folder.h"
#include "base/ProgramFiles.h"
#include "instruction/Clips.h"

namespace repvolta {
namespace {

/// Copies the clip of the exercise's name over the target; a missing clip is made first (quirk 13).
template <class Make>
void BeginWithName(const std::string& clip, const std::string& target, ProgressLog& log,
                   Make makeClip) {
  const bool isNew = !FileExists(clip);
  if (isNew) {
    MakeFolders(kNameClipFolder);
    makeClip();
  }
  CopyFileOver(clip, target);
  if (isNew) {
    log.AddLineToUpdateList("WARNING: Exercise Instruction file NOT FOUND - " + clip +
                            "    Computer voice file created.");
  }
}

}  // namespace

SpeechRequest SpeechOf(const VoiceState& voice, const std::string& text, const std::string& file) {
  return {.text = text,
          .file = file,
          .voice = voice.Voice,
          .rate = voice.Rate,
          .volume = voice.Volume,
          .format = voice.Format};
}

void SpeakToFile(const VoiceState& voice, SpeechSynthesizer& speech, const std::string& text,
                 const std::string& file) {
  speech.SpeakToFile(SpeechOf(voice, text, file));
}

SpokenInstruction ClipsFor(const SettingsRecord& settings, const ExerciseRecord& exercise) {
  return ClipsOfInstruction(
      exercise, settings.IncludeWeightValues == kTrue ? SetValues::kSaid : SetValues::kLeftOut);
}

void JoinClips(const std::vector<Clip>& clips, const std::string& target,
               const std::function<void(const Clip& name)>& beginWith, ProgressLog& log) {
  for (const Clip& clip : clips) {
    if (clip.kind == Clip::Kind::kName) {
      beginWith(clip);
    } else {
      AppendClip(target, clip.text, log);
    }
  }
}

void GenerateHumanVoiceInstruction(const ProgramState& state, std::int16_t exerciseIndex,
                                   const std::string& target, SpeechSynthesizer& speech,
                                   ProgressLog& log) {
  const ExerciseRecord& exercise = state.Workout[exerciseIndex];
  // An earlier exercise's file must not be heard as this one's instruction.
  RemoveFile(target);
  const SpokenInstruction said = ClipsFor(state.Settings, exercise);
  const auto beginWith = [&](const Clip& name) {
    const std::string file = ClipFile(name);
    BeginWithName(file, target, log, [&] { SpeakToFile(state.Voice, speech, name.text, file); });
  };
  JoinClips(said.clips, target, beginWith, log);
  if (!said.failure.empty()) throw std::out_of_range(said.failure);
}

}  // namespace repvolta
