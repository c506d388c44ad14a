#include "instruction/VoiceInstruction.h"

#include <stdexcept>

#include "base/File.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "instruction/Clips.h"
#include "instruction/SpokenWords.h"

namespace repvolta {
namespace {

/// Copies the clip of the exercise's name over the target; makes it first where there is none.
void BeginWithName(Program& program, const std::string& name, const std::string& target) {
  const std::string clip =
      ExistingName(std::string(kNameClipFolder) + AsFileName(name, kNameClipExtension));
  const bool isNew = !FileExists(clip);
  if (isNew) {
    MakeFolders(std::string(kNameClipFolder));
    SpeakToFile(program, name, clip);
  }
  CopyFileOver(clip, target);
  if (isNew) {
    program.screen.AddLineToUpdateList("WARNING: Exercise Instruction file NOT FOUND - " + clip +
                                       "    Computer voice file created.");
  }
}

}  // namespace

void SpeakToFile(Program& program, const std::string& text, const std::string& file) {
  const VoiceState& voice = program.state.Voice;
  program.speech.SpeakToFile({.text = text,
                              .file = file,
                              .voice = voice.Voice,
                              .rate = voice.Rate,
                              .volume = voice.Volume,
                              .format = voice.Format});
}

void GenerateHumanVoiceInstruction(Program& program, std::int16_t exerciseIndex,
                                   const std::string& target) {
  const ExerciseRecord& exercise = program.state.Workout[exerciseIndex];
  // What an earlier exercise left must not be heard as this one's instruction.
  RemoveFile(target);
  const SpokenInstruction said = ClipsOfInstruction(
      exercise,
      program.state.Settings.IncludeWeightValues == kTrue ? SetValues::kSaid : SetValues::kLeftOut);
  for (const Clip& clip : said.clips) {
    if (clip.kind == Clip::Kind::kName) {
      BeginWithName(program, clip.text, target);
    } else {
      AppendClip(target, clip.text, program.screen);
    }
  }
  if (!said.failure.empty()) throw std::out_of_range(said.failure);
}

}  // namespace repvolta
