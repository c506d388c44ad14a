#include "instruction/VoiceInstruction.h"

#include "base/File.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "instruction/Clips.h"
#include "instruction/VoiceNumber.h"

namespace repvolta {
namespace {

/// Says the parts of one exercise's instruction into a WAV file.
class InstructionSpeaker {
 public:
  InstructionSpeaker(const ExerciseRecord& exercise, const std::string& target, ProgressLog& log)
      : exercise_(exercise), target_(target), log_(log) {}

  void SayCount() {
    SayNumber(exercise_.NumberOfSets);
    SayClip(exercise_.NumberOfSets == 1 ? "set" : "sets");
  }

  void SaySet(int set) {
    switch (exercise_.SetType) {
      case kWeightAndReps:
        return SayWeightAndReps(set);
      case kLevelAndTime:
        return SayLevelAndTime(set);
      case kDistanceAndSpeed:
        return SaySpeedAndDistance(set);
      default:
        return;
    }
  }

 private:
  void SayWeightAndReps(int set) {
    SayNumber(exercise_.SetValue1[set]);
    SayClip(exercise_.Units != kFalse ? "pounds" : "kilograms");
    SayClip("for");
    SayNumber(exercise_.SetValue2[set]);
    SayClip("reps");
  }

  void SayLevelAndTime(int set) {
    SayClip("level");
    SayNumber(exercise_.SetValue1[set]);
    SayClip("for");
    SayNumber(exercise_.SetValue2[set]);
    SayClip("minutes");
  }

  /// The speed comes first, and the units run opposite to those of weights: an imperial exercise
  /// hears kilometres. Meant so.
  void SaySpeedAndDistance(int set) {
    SayNumber(exercise_.SetValue2[set]);
    SayClip(exercise_.Units == kTrue ? "kph" : "mph");
    SayClip("for");
    SayNumber(exercise_.SetValue1[set]);
    SayClip(exercise_.Units == kTrue ? "kilometers" : "miles");
  }

  void SayNumber(float value) { GenerateVoiceNumber(value, target_, log_); }
  void SayClip(std::string_view clip) { AppendClip(target_, clip, log_); }

  const ExerciseRecord& exercise_;
  const std::string& target_;
  ProgressLog& log_;
};

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
  BeginWithName(program, exercise.ExerciseName.Trimmed(), target);
  InstructionSpeaker speaker(exercise, target, program.screen);
  speaker.SayCount();
  if (program.state.Settings.IncludeWeightValues != kTrue) return;
  for (int set = 0; set < exercise.NumberOfSets; ++set) speaker.SaySet(set);
}

}  // namespace repvolta
