#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "backup/RestorePlan.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

FileToBackUp Present(const std::string& path, BackupKind kind) {
  return {.path = path, .archived = path, .kind = kind, .stamp = {}};
}

RestoredFile Planned(const std::string& path, BackupKind kind, RestoreEffect effect) {
  return {.path = path, .target = path, .kind = kind, .effect = effect};
}

TEST(RestoreTargets, AreWhereTheProgramFindsTheFiles) {
  const RestoreTargets targets({Present("workouts/Monday.RPV", BackupKind::kWorkout),
                                Present("voice/exercise/Squat.WAV", BackupKind::kNameClip)});
  EXPECT_EQ(targets.TargetOf("workouts/MONDAY.rpv", BackupKind::kWorkout), "workouts/Monday.RPV");
  EXPECT_EQ(targets.TargetOf("voice/exercise/squat.wav", BackupKind::kNameClip),
            "voice/exercise/Squat.WAV");
  EXPECT_EQ(targets.TargetOf("workouts/Legs.RPV", BackupKind::kWorkout), "workouts/Legs.RPV");
}

TEST(RestoreTargets, LeadClipsToTheOthersOfTheirVoice) {
  const RestoreTargets targets({Present("voices/Kim/300.wav", BackupKind::kVoiceClip)});
  EXPECT_EQ(targets.TargetOf("voices/KIM/exercise/Row.WAV", BackupKind::kVoiceClip),
            "voices/Kim/exercise/Row.WAV");
  EXPECT_EQ(targets.TargetOf("voices/Lee/300.wav", BackupKind::kVoiceClip), "voices/Lee/300.wav");
}

TEST(RestoreTargets, HaveTheBytesOfNamesThatAreHere) {
  const FileToBackUp here{.path = "workouts/Gru\xCC\x88n.RPV",
                          .archived = "workouts/Gr\xC3\xBCn.RPV",
                          .kind = BackupKind::kWorkout,
                          .stamp = {}};
  EXPECT_EQ(RestoreTargets({here}).TargetOf(here.archived, here.kind), here.path);
}

TEST(RestoreTargets, LeadVersionsToTheirWorkout) {
  const RestoreTargets targets({Present("workouts/Monday.RPV", BackupKind::kWorkout)});
  const std::string version = "2026-11-22 05.32.06 before update.RPV";
  EXPECT_EQ(targets.TargetOf("versions/monday/" + version, BackupKind::kVersion),
            "versions/Monday/" + version);
  EXPECT_EQ(targets.TargetOf("versions/Gone/" + version, BackupKind::kVersion),
            "versions/Gone/" + version);
}

TEST(NextVersionPath, IsOneSecondLater) {
  EXPECT_EQ(NextVersionPath("versions/Monday/2026-11-22 05.59.59 before update.RPV"),
            "versions/Monday/2026-11-22 06.00.00 before update.RPV");
}

TEST(FilesLeftByAPlan, AreThoseThatNoFileOfTheBackupMeans) {
  const std::vector<FileToBackUp> present = {Present("settings.dat", BackupKind::kSettings),
                                             Present("workouts/A.RPV", BackupKind::kWorkout),
                                             Present("workouts/B.RPV", BackupKind::kWorkout)};
  const auto left = LeftByPlan(
      present, {Planned("settings.dat", BackupKind::kSettings, RestoreEffect::kReplaces),
                Planned("workouts/A.RPV", BackupKind::kWorkout, RestoreEffect::kIsThere)});
  EXPECT_THAT(left, ElementsAre(present[2]));
}

TEST(RestorePlanText, SaysWhatIsReplacedAddedAndLeft) {
  RestorePlan plan;
  plan.files = {Planned("settings.dat", BackupKind::kSettings, RestoreEffect::kReplaces),
                Planned("options.conf", BackupKind::kOptions, RestoreEffect::kAdds),
                Planned("musiclist.txt", BackupKind::kMusicList, RestoreEffect::kAdds),
                Planned("workouts/Push.RPV", BackupKind::kWorkout, RestoreEffect::kReplaces),
                Planned("workouts/Legs.RPV", BackupKind::kWorkout, RestoreEffect::kReplaces),
                Planned("workouts/New.RPV", BackupKind::kWorkout, RestoreEffect::kAdds),
                Planned("versions/New/a.RPV", BackupKind::kVersion, RestoreEffect::kAdds),
                Planned("versions/New/b.RPV", BackupKind::kVersion, RestoreEffect::kAdds),
                Planned("voice/exercise/Hop.WAV", BackupKind::kNameClip, RestoreEffect::kAdds),
                Planned("voice/ten.wav", BackupKind::kClip, RestoreEffect::kIsThere),
                Planned("exercise/Own.lst", BackupKind::kExerciseList, RestoreEffect::kIsThere)};
  plan.left = {Present("workouts/Other.RPV", BackupKind::kWorkout)};
  EXPECT_THAT(TextOf(plan),
              ElementsAre("Replaces the settings.", "Replaces 2 workouts: Legs, Push.",
                          "Adds the options.", "Adds the list of random music.",
                          "Adds 1 workout: New.", "Adds 2 earlier versions.", "Adds 1 clip: Hop.",
                          "Leaves 1 workout that the backup does not have: Other.",
                          "2 files are here already, just the same."));
}

TEST(RestorePlanText, SaysWhatBecomesOfTheVoice) {
  RestorePlan plan;
  plan.files = {
      Planned("voices/origins.txt", BackupKind::kClipOrigins, RestoreEffect::kReplaces),
      Planned("voices/level.txt", BackupKind::kClipLevels, RestoreEffect::kReplaces),
      Planned("voices/Kim/300.wav", BackupKind::kVoiceClip, RestoreEffect::kAdds),
      Planned("voices/.originals/300.wav", BackupKind::kOriginalClip, RestoreEffect::kAdds),
      Planned("voices/.originals/and.wav", BackupKind::kOriginalClip, RestoreEffect::kAdds)};
  EXPECT_THAT(TextOf(plan),
              ElementsAre("Replaces the notes on the clips.", "Replaces the level of the voice.",
                          "Adds 1 clip of another voice.", "Adds 2 clips as they were made."));
}

TEST(RestorePlanText, SaysThatNothingChanges) {
  RestorePlan plan;
  EXPECT_THAT(TextOf(plan), ElementsAre("Changes nothing: all of the backup is here."));
  plan.files = {Planned("settings.dat", BackupKind::kSettings, RestoreEffect::kIsThere)};
  EXPECT_TRUE(ChangesNothing(plan));
  EXPECT_THAT(TextOf(plan), ElementsAre("Changes nothing: all of the backup is here."));
}

TEST(RestorePlanText, DoesNotNameDozens) {
  RestorePlan plan;
  for (int i = 0; i < 15; ++i) {
    const std::string name(1, static_cast<char>('A' + i));
    plan.files.push_back(
        Planned("workouts/" + name + ".RPV", BackupKind::kWorkout, RestoreEffect::kAdds));
  }
  EXPECT_THAT(TextOf(plan),
              ElementsAre("Adds 15 workouts: A, B, C, D, E, F, G, H, I, J, K, L and 3 more."));
}

TEST(RestorePlanText, NamesPathsThatStay) {
  RestorePlan plan;
  plan.files = {Planned("settings.dat", BackupKind::kSettings, RestoreEffect::kAdds)};
  plan.tooLong = {"/home/old/a.mp3"};
  EXPECT_THAT(
      TextOf(plan),
      ElementsAre("Adds the settings.",
                  "Stays as it is, because the new path would have more than 256 characters: "
                  "/home/old/a.mp3"));
}

}  // namespace
}  // namespace repvolta
