#include <gtest/gtest.h>

#include "backup/BackupContents.h"

#include "support/WavBytes.h"

namespace repvolta {
namespace {

TEST(BackupContents, AreKnownByTheirPaths) {
  EXPECT_EQ(BackupKindOf("repvolta-backup.txt"), BackupKind::kManifest);
  EXPECT_EQ(BackupKindOf("settings.dat"), BackupKind::kSettings);
  EXPECT_EQ(BackupKindOf("options.conf"), BackupKind::kOptions);
  EXPECT_EQ(BackupKindOf("musiclist.txt"), BackupKind::kMusicList);
  EXPECT_EQ(BackupKindOf("workouts/Läufe ..RPV"), BackupKind::kWorkout);
  EXPECT_EQ(BackupKindOf("workouts/monday.rpv"), BackupKind::kWorkout);
  EXPECT_EQ(BackupKindOf("versions/Monday/2026-11-22 05.32.06 before update.RPV"),
            BackupKind::kVersion);
  EXPECT_EQ(BackupKindOf("voice/sets.wav"), BackupKind::kClip);
  EXPECT_EQ(BackupKindOf("voice/exercise/Squat.WAV"), BackupKind::kNameClip);
  EXPECT_EQ(BackupKindOf("exercise/Arms.lst"), BackupKind::kExerciseList);
}

TEST(BackupContents, HaveWholeVoicesAndTheNotesOnClips) {
  EXPECT_EQ(BackupKindOf("voices/origins.txt"), BackupKind::kClipOrigins);
  EXPECT_EQ(BackupKindOf("voices/level.txt"), BackupKind::kClipLevels);
  for (const char* path : {"voices/Kim's voice/300.wav", "voices/Kim/exercise/Squat.WAV"}) {
    EXPECT_EQ(BackupKindOf(path), BackupKind::kVoiceClip) << path;
  }
  for (const char* path : {"voices/.originals/300.wav", "voices/.originals/exercise/Squat.WAV"}) {
    EXPECT_EQ(BackupKindOf(path), BackupKind::kOriginalClip) << path;
  }
  for (const char* path :
       {"voices/300.wav", "voices/Kim.txt", "voices/songs.txt", "voices//300.wav",
        "voices/../300.wav", "voices/./300.wav", "voices/.taken in/300.wav", "voices/Kim/300.mp3",
        "voices/Kim/exercise/deep/Squat.WAV", "voices/Kim/deep/300.wav", "voices/a\\b/300.wav",
        "voices/.originals/deep/300.wav", "voices/.Originals/300.wav", "voices/.originals/300.mp3",
        "voices/.taken in/exercise/Squat.WAV", "voices/Kim/exercise/.WAV"}) {
    EXPECT_EQ(BackupKindOf(path), std::nullopt) << path;
  }
}

TEST(BackupContents, HaveTheFoldersOfWholeVoices) {
  for (const char* folder : {"voices", "voices/", "voices/Kim", "voices/Kim/exercise/"}) {
    EXPECT_TRUE(IsBackupFolder(folder)) << folder;
  }
  for (const char* folder : {"voices/..", "voices//", "voices/Kim/deep", "voices/.hidden/"}) {
    EXPECT_FALSE(IsBackupFolder(folder)) << folder;
  }
}

TEST(BackupContents, OfVoicesNeedTheSecondFormat) {
  EXPECT_EQ(FormatWith(BackupKind::kNameClip), 1);
  EXPECT_EQ(FormatWith(BackupKind::kClipOrigins), 2);
  EXPECT_EQ(FormatWith(BackupKind::kClipLevels), 2);
  EXPECT_EQ(FormatWith(BackupKind::kVoiceClip), 2);
  EXPECT_EQ(FormatWith(BackupKind::kOriginalClip), 2);
}

TEST(BackupContents, HaveNoOtherPaths) {
  for (const char* path : {"",
                           "/",
                           ".",
                           "..",
                           "settings.dat/",
                           "Settings.dat",
                           "/settings.dat",
                           "./settings.dat",
                           "window.ini",
                           "lame.exe",
                           "update.lock",
                           "brought.sha256",
                           "workouts",
                           "workouts/",
                           "workouts/.RPV",
                           "workouts/Monday.RPV/",
                           "workouts/Monday.txt",
                           "workouts//Monday.RPV",
                           "workouts/./Monday.RPV",
                           "workouts/../Monday.RPV",
                           "../workouts/Monday.RPV",
                           "/workouts/Monday.RPV",
                           "workouts/deep/Monday.RPV",
                           "Workouts/Monday.RPV",
                           "workouts\\Monday.RPV",
                           "workouts/..\\Monday.RPV",
                           "workouts/C:\\Monday.RPV",
                           "workouts/Mon\nday.RPV",
                           "workouts/Mon\x7F.RPV",
                           "workouts/M\xFCnchen.RPV",
                           "versions/next",
                           "versions/Monday.RPV",
                           "versions/Monday/next",
                           "versions/Monday/a.RPV",
                           "versions/Monday/x/2026-11-22 05.32.06 before update.RPV",
                           "versions/../2026-11-22 05.32.06 before update.RPV",
                           "versions//2026-11-22 05.32.06 before update.RPV",
                           "versions/Mon\\day/2026-11-22 05.32.06 before update.RPV",
                           "voice/exercise/deep/Squat.WAV",
                           "voice/Squat.mp3",
                           "exercise/Arms.wav",
                           "bin/flite"}) {
    EXPECT_EQ(BackupKindOf(path), std::nullopt) << path;
  }
}

TEST(BackupContents, HaveNoNamesThatAreTooLong) {
  const std::string longest = "workouts/" + std::string(251, 'x') + ".RPV";
  EXPECT_EQ(BackupKindOf(longest), BackupKind::kWorkout);
  EXPECT_EQ(BackupKindOf("workouts/x" + longest.substr(9)), std::nullopt);
}

TEST(BackupContents, LieInTheseFolders) {
  for (const char* path : {"workouts/", "workouts", "versions/", "versions/Monday/",
                           "versions/Monday", "voice/", "voice/exercise/", "exercise/"}) {
    EXPECT_TRUE(IsBackupFolder(path)) << path;
  }
  for (const char* path : {"", "/", "../", "/workouts/", "workouts/../", "workouts/deep/",
                           "versions/Monday/deep/", "versions/../", "versions//", "bin/"}) {
    EXPECT_FALSE(IsBackupFolder(path)) << path;
  }
}

TEST(BackupContents, HaveClipsWithSound) {
  const Bytes clip = WavBytes().Format(1, 16000, 16).Samples16({0, 1}).Get();
  EXPECT_EQ(WhyNotOfKind(BackupKind::kClip, clip), "");
  EXPECT_EQ(WhyNotOfKind(BackupKind::kNameClip, AsBytes("RIFF")), "It is no WAV file");
  EXPECT_EQ(WhyNotOfKind(BackupKind::kOriginalClip, AsBytes("RIFF")), "It is no WAV file");
}

TEST(BackupContents, HaveListsThatAreTexts) {
  const std::string binary("a\0b", 3);
  for (const BackupKind kind : {BackupKind::kExerciseList, BackupKind::kMusicList,
                                BackupKind::kOptions, BackupKind::kClipLevels}) {
    EXPECT_EQ(WhyNotOfKind(kind, AsBytes("Caf\xE9\r\n")), "");
    EXPECT_EQ(WhyNotOfKind(kind, AsBytes(binary)), "It is no text");
  }
}

TEST(BackupContents, AreNotLargerThanTheirKind) {
  const Bytes content(LargestInBackup(BackupKind::kWorkout) + 1);
  EXPECT_EQ(WhyNotOfKind(BackupKind::kWorkout, std::span(content).first(content.size() - 1)), "");
  EXPECT_EQ(WhyNotOfKind(BackupKind::kWorkout, content), "It is too large");
}

TEST(BackupContents, DifferInMoreThanCase) {
  EXPECT_EQ(FoldedBackupPath("workouts/STRASSE.RPV"), FoldedBackupPath("workouts/Strasse.rpv"));
  EXPECT_EQ(FoldedBackupPath("workouts/LÄUFE.RPV"), FoldedBackupPath("workouts/läufe.RPV"));
  EXPECT_NE(FoldedBackupPath("workouts/a.RPV"), FoldedBackupPath("workouts/b.RPV"));
}

}  // namespace
}  // namespace repvolta
