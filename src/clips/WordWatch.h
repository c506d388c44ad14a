#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "clips/RumbleFilter.h"

namespace repvolta {

enum class TakeStage {
  kRoom,     // the room is listened to, for a moment
  kWaiting,  // for the word
  kWord,     // it sounds, or the pause behind it is not over; it may turn out to be a click
  kEnded,
};

/// How a take came to its end.
enum class TakeEnd {
  kNotYet,
  kPause,    // behind the word
  kStopped,  // by somebody
  kTooLong,
  kNothingHeard,
  kNoSound,  // not even the noise of a room
};

/// Where something sounds, in samples or in windows.
struct SoundSpan {
  std::size_t begin = 0;
  std::size_t end = 0;
};

/// Sees in what is heard where a word begins and ends. Holds a number for each hundredth of a
/// second.
class WordWatch {
 public:
  /// Three times the longest exercise name, in seconds.
  static constexpr std::uint32_t kLongest = 15;

  /// The sound to come has so many samples a second.
  explicit WordWatch(std::uint32_t rate);

  /// Without effect after the end.
  void Add(std::span<const float> samples);

  /// Ends now.
  void Stop();

  TakeStage Stage() const;
  TakeEnd End() const { return end_; }

  /// The word so far, in samples since the start.
  std::optional<SoundSpan> Word() const;

 private:
  void Add(float sample);
  void EndWindow();
  TakeEnd EndSoFar() const;

  /// A level is that of so many windows, three waves of the mains at 60 Hz, so that a hum has the
  /// same level everywhere.
  static constexpr std::size_t kSmoothed = 5;

  std::size_t windowSize_;
  RumbleFilter filter_;
  std::size_t inWindow_ = 0;  // samples
  double power_ = 0;          // their sum of squares
  float peak_ = 0;            // of all that was heard
  std::array<double, kSmoothed> powers_ = {};
  std::vector<float> levels_;
  std::optional<SoundSpan> word_;  // in windows
  TakeEnd end_ = TakeEnd::kNotYet;
};

}  // namespace repvolta
