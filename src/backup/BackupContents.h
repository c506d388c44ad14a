#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/Bytes.h"

namespace repvolta {

/// What a file of a backup is.
enum class BackupKind {
  kManifest,      // says what the backup is; not in the program directory
  kSettings,      // settings.dat
  kOptions,       // options.conf
  kMusicList,     // musiclist.txt
  kWorkout,       // workouts/NAME.RPV
  kVersion,       // versions/NAME/DATE TIME before REASON.RPV
  kClip,          // voice/NAME.wav
  kNameClip,      // voice/exercise/NAME.WAV
  kExerciseList,  // exercise/NAME.lst
  kClipOrigins,   // voices/origins.txt
  kClipLevels,    // voices/level.txt
  kVoiceClip,     // voices/VOICE/NAME.wav, voices/VOICE/exercise/NAME.WAV
  kOriginalClip,  // voices/.originals/NAME.wav, voices/.originals/exercise/NAME.WAV
};

inline constexpr const char* kBackupManifest = "repvolta-backup.txt";
inline constexpr const char* kBackupExtension = ".zip";

/// The kind of the file with this path in a backup, which is its path in the program directory,
/// too; nothing for a path that no backup has. Paths that have a kind are relative and well-formed
/// UTF-8, lead nowhere else, and have no backslash and no control characters.
std::optional<BackupKind> BackupKindOf(std::string_view path);

/// True for WAV files with one word or name.
bool IsClip(BackupKind kind);

/// The lowest format of a backup that holds a file of the kind. Programs know the kinds of the
/// formats that they know.
int FormatWith(BackupKind kind);

/// True for the folders that hold such files: "versions/Monday/" or "versions/Monday".
bool IsBackupFolder(std::string_view path);

/// Files of a kind with more bytes are in no backup.
std::uint64_t LargestInBackup(BackupKind kind);

/// Why this content cannot be that of a file of the kind, "It is no WAV file"; "" when it can.
std::string WhyNotOfKind(BackupKind kind, std::span<const Byte> content);

/// True for the kinds of files that may have come with the program.
bool CanBeBrought(BackupKind kind);

/// True for content that is too short for what its kind needs: settings that are not whole, or a
/// workout without a whole exercise. Backups have it, since they hold what is there; but it must
/// not take the place of anything.
bool IsDamaged(BackupKind kind, std::span<const Byte> content);

/// The same text for two paths that some disk cannot hold both, because they differ in case only.
std::u32string FoldedBackupPath(std::string_view path);

}  // namespace repvolta
