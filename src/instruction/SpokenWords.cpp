#include "instruction/SpokenWords.h"

#include <cmath>
#include <stdexcept>
#include <utility>

namespace repvolta {
namespace {

/// Says a number word by word and subtracts each word from the value.
class NumberSpeaker {
 public:
  explicit NumberSpeaker(float value) : number_{.words = {}, .rest = value} {}

  void SayThousands() { SayMultipleOf(1000); }

  /// "And" is said only after hundreds, and only if something whole remains (quirk 15). A value of
  /// 10000 or more arrives here unchanged, and of its whole part only "and" is said (quirk 14).
  void SayHundreds() {
    if (number_.rest < 100) return;
    SayMultipleOf(100);
    if (std::floor(number_.rest) > 0) Say("and");
  }

  void SayTens() {
    const float whole = std::floor(number_.rest);
    if (whole >= 10 && whole <= 19) {
      SayAndSubtract(whole);
    } else {
      SayMultipleOf(10);
    }
  }

  void SayUnits() { SayMultipleOf(1); }

  /// If the fraction rounds to nothing or to one, no digit follows "point" (quirk 16).
  void SayDecimal() {
    if (!(number_.rest > 0 && number_.rest < 1)) return;
    Say("point");
    const double tenths = std::nearbyint(double{number_.rest} * 10);
    if (tenths >= 1 && tenths <= 9) Say(std::to_string(static_cast<int>(tenths)));
  }

  NumberWords TakeWords() { return std::move(number_); }

 private:
  /// Says one to nine times `unit`, if the whole value is in that range.
  void SayMultipleOf(float unit) {
    const float count = std::floor(std::floor(number_.rest) / unit);
    if (count >= 1 && count <= 9) SayAndSubtract(count * unit);
  }

  void SayAndSubtract(float spoken) {
    Say(std::to_string(static_cast<int>(spoken)));
    number_.rest -= spoken;
  }

  void Say(std::string word) { number_.words.push_back(std::move(word)); }

  NumberWords number_;
};

/// Collects the clips of one exercise's instruction.
class InstructionSpeaker {
 public:
  explicit InstructionSpeaker(const ExerciseRecord& exercise) : exercise_(exercise) {}

  void SayName() { clips_.push_back({Clip::Kind::kName, exercise_.ExerciseName.Trimmed()}); }

  void SayCount() {
    SayNumber(exercise_.NumberOfSets);
    SayWord(exercise_.NumberOfSets == 1 ? "set" : "sets");
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
        return;  // quirk 8
    }
  }

  std::vector<Clip> TakeClips() { return std::move(clips_); }

 private:
  void SayWeightAndReps(int set) {
    SayNumber(exercise_.SetValue1[set]);
    SayWord(exercise_.Units != kFalse ? "pounds" : "kilograms");
    SayWord("for");
    SayNumber(exercise_.SetValue2[set]);
    SayWord("reps");  // quirk 11
  }

  void SayLevelAndTime(int set) {
    SayWord("level");
    SayNumber(exercise_.SetValue1[set]);
    SayWord("for");
    SayNumber(exercise_.SetValue2[set]);
    SayWord("minutes");  // quirk 11
  }

  /// The speed comes first, and the units run opposite to those of weights (quirk 2); only kTrue is
  /// imperial here (quirk 3).
  void SaySpeedAndDistance(int set) {
    SayNumber(exercise_.SetValue2[set]);
    SayWord(exercise_.Units == kTrue ? "kph" : "mph");
    SayWord("for");
    SayNumber(exercise_.SetValue1[set]);
    SayWord(exercise_.Units == kTrue ? "kilometers" : "miles");
  }

  void SayNumber(float value) {
    for (std::string& word : WordsOfNumber(value).words) SayWord(std::move(word));
  }

  void SayWord(std::string word) { clips_.push_back({Clip::Kind::kWord, std::move(word)}); }

  const ExerciseRecord& exercise_;
  std::vector<Clip> clips_;
};

}  // namespace

NumberWords WordsOfNumber(float value) {
  NumberSpeaker speaker(value);
  speaker.SayThousands();
  speaker.SayHundreds();
  speaker.SayTens();
  speaker.SayUnits();
  speaker.SayDecimal();
  return speaker.TakeWords();
}

SpokenInstruction ClipsOfInstruction(const ExerciseRecord& exercise, SetValues values) {
  InstructionSpeaker speaker(exercise);
  std::string failure;
  speaker.SayName();
  speaker.SayCount();
  if (values == SetValues::kSaid) {
    try {
      for (int set = 0; set < exercise.NumberOfSets; ++set) speaker.SaySet(set);
    } catch (const std::out_of_range& missing) {
      failure = missing.what();
    }
  }
  return {.clips = speaker.TakeClips(), .failure = failure};
}

}  // namespace repvolta
