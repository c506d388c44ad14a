#pragma once

#include "app/Records.h"
#include "base/Bytes.h"

namespace repvolta {

// Workout file: kExerciseSlots records back to back. Settings file: one record. Both are
// little-endian without header or padding; docs/formats has the byte tables.

inline constexpr std::size_t kExerciseRecordSize = 5120;
inline constexpr std::size_t kWorkoutFileSize = kExerciseSlots * kExerciseRecordSize;
/// The fields of the songs stand at the beginning of a record, those of the two paths at the
/// beginning of the settings.
inline constexpr std::size_t kPathFieldSize = 256;
/// Excluding the characters of AudioFormat.
inline constexpr std::size_t kSettingsFileSize = 1320;
/// The longest settings file: the length of AudioFormat has 16 bits.
inline constexpr std::size_t kLongestSettingsFile = kSettingsFileSize + 0xFFFF;

/// kWorkoutFileSize bytes.
Bytes EncodeWorkout(const ExerciseSlots& workout);

/// Reads as far as the bytes go: missing bytes count as zeros and blanks, extra ones are ignored.
ExerciseSlots DecodeWorkout(std::span<const Byte> file);

Bytes EncodeSettings(const SettingsRecord& settings);

/// Reads as far as the bytes go: missing bytes count as zeros and blanks.
SettingsRecord DecodeSettings(std::span<const Byte> file);

/// `theirs`, with every field that differs between `base` and `ours` taken from `ours`.
SettingsRecord MergeSettings(const SettingsRecord& base, const SettingsRecord& ours,
                             SettingsRecord theirs);

}  // namespace repvolta
