#pragma once

namespace repvolta {

// All names in the program directory, which is current while the program works with its files;
// docs/formats describes their content. Folders end with the separator.

inline constexpr const char* kSettingsFile = "settings.dat";
inline constexpr const char* kOptionsFile = "options.conf";
inline constexpr const char* kMusicList = "musiclist.txt";
inline constexpr const char* kEncoder = "lame.exe";
inline constexpr const char* kUpdateLockFile = "update.lock";

/// The checksums of the clips and lists that the program brought, as sha256sum writes them.
inline constexpr const char* kBroughtList = "brought.sha256";

/// Exists only if the program directory is the executable's own folder.
inline constexpr const char* kWindowLayoutFile = "window.ini";

inline constexpr const char* kWorkoutFolder = "workouts/";
inline constexpr const char* kWorkoutExtension = ".RPV";

/// Kept versions of the workouts, in a folder for each.
inline constexpr const char* kVersionFolder = "versions/";

/// A backup that is being restored, or clips that are being changed: the files, a mark for each one
/// that is to go, and the journal that lists them once they are whole.
inline constexpr const char* kRestoreFolder = "restore.pending/";
inline constexpr const char* kRestoredFiles = "restore.pending/files/";
inline constexpr const char* kRemovalMarks = "restore.pending/removed/";
inline constexpr const char* kRestoreJournal = "restore.pending/journal.txt";

/// The backups of what was there before another was restored.
inline constexpr const char* kBackupFolder = "backups/";
inline constexpr const char* kBackupBeforeRestore = "Before restore ";

/// The lists of exercise names.
inline constexpr const char* kExerciseFolder = "exercise/";
inline constexpr const char* kExerciseListExtension = ".lst";

/// The recorded clips: words and numbers in the first folder, names of exercises in the second.
inline constexpr const char* kClipFolder = "voice/";
inline constexpr const char* kClipExtension = ".wav";
inline constexpr const char* kNameClipSubfolder = "exercise/";  // of the clip folder
inline constexpr const char* kNameClipFolder = "voice/exercise/";
inline constexpr const char* kNameClipExtension = ".WAV";

/// Whole voices, in a folder for each; notes on the clips that are in use, whose they are and how
/// their level was changed; and what those of them were before.
inline constexpr const char* kVoicesFolder = "voices/";
inline constexpr const char* kClipOrigins = "voices/origins.txt";
inline constexpr const char* kClipLevels = "voices/level.txt";
inline constexpr const char* kOriginalClips = "voices/.originals/";

/// The working files of an update.
inline constexpr const char* kWorkingWav = "temp.wav";
inline constexpr const char* kWorkingMp3 = "temp.mp3";
inline constexpr const char* kWorkingSong = "temp.mp3.new";

}  // namespace repvolta
