#include "instruction/VoiceNumber.h"

#include <cmath>

#include "instruction/Clips.h"

namespace repvolta {
namespace {

/// Says a number clip by clip and takes what it said off the value.
class NumberSpeaker {
 public:
  NumberSpeaker(float& value, const std::string& target, ProgressLog& log)
      : value_(value), target_(target), log_(log) {}

  void SayThousands() { SayMultipleOf(1000); }

  /// "And" is said only where hundreds may have come before and something whole remains. A value of
  /// 10000 or more gets here whole and says only "and": meant so.
  void SayHundreds() {
    if (value_ < 100) return;
    SayMultipleOf(100);
    if (std::floor(value_) > 0) Say("and");
  }

  void SayTens() {
    const float whole = std::floor(value_);
    if (whole >= 10 && whole <= 19) {
      SayAndSubtract(whole);
    } else {
      SayMultipleOf(10);
    }
  }

  void SayUnits() { SayMultipleOf(1); }

  /// "Point" is said alone when the fraction rounds to nothing or to one.
  void SayDecimal() {
    if (!(value_ > 0 && value_ < 1)) return;
    Say("point");
    const double tenths = std::nearbyint(double{value_} * 10);
    if (tenths >= 1 && tenths <= 9) Say(std::to_string(static_cast<int>(tenths)));
  }

 private:
  /// Says one to nine times `unit`, where the whole value lies there.
  void SayMultipleOf(float unit) {
    const float count = std::floor(std::floor(value_) / unit);
    if (count >= 1 && count <= 9) SayAndSubtract(count * unit);
  }

  void SayAndSubtract(float spoken) {
    Say(std::to_string(static_cast<int>(spoken)));
    value_ -= spoken;
  }

  void Say(const std::string& clip) { AppendClip(target_, clip, log_); }

  float& value_;
  const std::string& target_;
  ProgressLog& log_;
};

}  // namespace

void GenerateVoiceNumber(float& value, const std::string& target, ProgressLog& log) {
  NumberSpeaker speaker(value, target, log);
  speaker.SayThousands();
  speaker.SayHundreds();
  speaker.SayTens();
  speaker.SayUnits();
  speaker.SayDecimal();
}

}  // namespace repvolta
