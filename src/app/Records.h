#pragma once

#include <array>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

#include "base/Bytes.h"
#include "base/SingleByteText.h"
#include "base/Text.h"

namespace repvolta {

inline constexpr std::int16_t MaxExercises = 5;    // quirk 100
inline constexpr std::int16_t MaxSets = 3;         // quirk 90
inline constexpr std::int16_t MaxMusicFiles = 10;  // quirk 96

/// A 16-bit flag. Only kTrue counts as true; every other value counts as false (quirk 19).
using Flag = std::int16_t;
inline constexpr Flag kTrue = -1;
inline constexpr Flag kFalse = 0;

/// A UTF-8 text as it comes back from a field of `Size` bytes: cut to the size and without padding;
/// leading blanks are kept.
template <std::size_t Size>
class FixedText {
 public:
  FixedText() = default;
  FixedText(std::string_view text) : text_(CutToField(text, Size)) {}
  FixedText(const std::string& text) : FixedText(std::string_view(text)) {}
  FixedText(const char* text) : FixedText(std::string_view(text)) {}

  const std::string& Text() const { return text_; }
  std::string Trimmed() const { return std::string(TrimBlanks(text_)); }
  bool IsBlank() const { return TrimBlanks(text_).empty(); }

  bool operator==(const FixedText&) const = default;

 private:
  std::string text_;
};

/// An array of `Size` slots. Any other index throws std::out_of_range.
template <class Item, std::size_t Size>
class Slots {
 public:
  Item& operator[](int index) { return items_[Checked(index)]; }
  const Item& operator[](int index) const { return items_[Checked(index)]; }
  auto begin() { return items_.begin(); }
  auto begin() const { return items_.begin(); }
  auto end() { return items_.end(); }
  auto end() const { return items_.end(); }

  bool operator==(const Slots&) const = default;

 private:
  static std::size_t Checked(int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= Size) {
      throw std::out_of_range("Number " + std::to_string(index) + " is outside 0 to " +
                              std::to_string(Size - 1));
    }
    return static_cast<std::size_t>(index);
  }

  std::array<Item, Size> items_{};
};

/// Bytes that the program does not use; they survive loading and saving.
template <std::size_t Size, Byte Initial>
struct Reserved {
  Reserved() { bytes.fill(Initial); }
  bool operator==(const Reserved&) const = default;

  std::array<Byte, Size> bytes;
};

/// The slots in the files; the editing commands allow fewer, see the limits above.
inline constexpr std::size_t kExerciseSlots = 52;
inline constexpr std::size_t kSetSlots = 17;
inline constexpr std::size_t kMusicSlots = 12;

using SetSingles = Slots<float, kSetSlots>;
using SetDates = Slots<double, kSetSlots>;

/// The kind of the two values of a set.
enum SetTypeNumber : std::int16_t {
  kWeightAndReps = 0,
  kLevelAndTime = 1,
  kDistanceAndSpeed = 2,
  kUserDefined = 3
};

/// One exercise. Times are seconds, dates as Clock gives them, frequencies days.
struct ExerciseRecord {
  Slots<FixedText<256>, kMusicSlots> MusicFile;
  Slots<std::int16_t, kMusicSlots> MusicFilePlayTime;
  std::int16_t TargetExerciseTime = 0;
  std::int16_t TotalMusicTime = 0;
  std::int16_t NumberOfMusicFiles = 0;
  std::int16_t NumberOfSets = 0;
  SetSingles SetValue1;
  SetSingles SetValue2;
  SetSingles SetIncrement1;
  SetSingles SetIncrement2;
  SetSingles SetFrequency1;
  SetSingles SetFrequency2;
  SetDates NextUpdate1;
  SetDates NextUpdate2;
  std::int16_t SetType = kWeightAndReps;
  FixedText<25> UserField1Name;
  FixedText<25> UserField2Name;
  Flag Units = kFalse;  // true: pounds and miles
  Flag RandomMusic = kFalse;
  FixedText<256> ExerciseName;  // blank: the slot is not used
  Reserved<std::size_t{3} * 256, ' '> ReservedTexts;
  Reserved<256, 0> ReservedTail;

  bool operator==(const ExerciseRecord&) const = default;
};

/// The workout in memory; exercises in use come first.
using ExerciseSlots = Slots<ExerciseRecord, kExerciseSlots>;

struct SettingsRecord {
  FixedText<256> MusicPath;
  FixedText<256> OutputPath;
  std::int16_t DefaultExerciseTime = 0;  // minutes
  Reserved<6, 0> ReservedIntegers;
  std::int16_t VoiceIndex = 0;
  std::int16_t VoiceRate = 0;
  std::int16_t VoiceVolume = 70;
  std::string AudioFormat;  // the decimal list index chosen in FormatCB
  Flag AutoLoadPlaylist = kFalse;
  Flag IncludeWeightValues = kFalse;
  Reserved<2, 0> ReservedInteger;
  std::int16_t LastWorkoutIndex = 0;
  Reserved<16, 0> ReservedBlock;
  Reserved<std::size_t{3} * 256, ' '> ReservedTexts;

  bool operator==(const SettingsRecord&) const = default;
};

}  // namespace repvolta
