#include <bit>
#include <gtest/gtest.h>
#include <random>

#include "app/RecordFormat.h"

namespace repvolta {
namespace {

template <class Unsigned>
Unsigned At(const Bytes& file, std::size_t offset) {
  return LoadLittleEndian<Unsigned>(std::span(file).subspan(offset));
}

std::string TextAt(const Bytes& file, std::size_t offset, std::size_t size) {
  return AsText(std::span(file).subspan(offset, size));
}

std::string Padded(std::string text, std::size_t size) {
  text.resize(size, ' ');
  return text;
}

/// An exercise with a value of its own in every field.
ExerciseRecord FullExercise() {
  ExerciseRecord exercise;
  exercise.MusicFile[0] = "/music/first.mp3";
  exercise.MusicFile[11] = "/music/last.mp3";
  exercise.MusicFilePlayTime[11] = 211;
  exercise.TargetExerciseTime = 320;
  exercise.TotalMusicTime = 375;
  exercise.NumberOfMusicFiles = 12;
  exercise.NumberOfSets = 17;
  exercise.SetValue1[16] = 62.3F;
  exercise.SetValue2[16] = 8;
  exercise.SetIncrement1[16] = 2.5F;
  exercise.SetIncrement2[16] = -1;
  exercise.SetFrequency1[16] = 7;
  exercise.SetFrequency2[16] = 14;
  exercise.NextUpdate1[16] = 39166;
  exercise.NextUpdate2[16] = 39167.5;
  exercise.SetType = 3;
  exercise.UserField1Name = "Tosses";
  exercise.UserField2Name = "Dwarfs";
  exercise.Units = kTrue;
  exercise.RandomMusic = kTrue;
  exercise.ExerciseName = "Bench Press";
  return exercise;
}

TEST(WorkoutFormat, PutsEachFieldAtItsOffset) {
  ExerciseSlots workout;
  workout[0] = FullExercise();

  const Bytes file = EncodeWorkout(workout);

  ASSERT_EQ(file.size(), kWorkoutFileSize);
  EXPECT_EQ(TextAt(file, 0, 256), Padded("/music/first.mp3", 256));
  EXPECT_EQ(TextAt(file, 11 * 256, 256), Padded("/music/last.mp3", 256));
  EXPECT_EQ(At<std::uint16_t>(file, 3072 + 22), 211);
  EXPECT_EQ(At<std::uint16_t>(file, 3096), 320);
  EXPECT_EQ(At<std::uint16_t>(file, 3098), 375);
  EXPECT_EQ(At<std::uint16_t>(file, 3100), 12);
  EXPECT_EQ(At<std::uint16_t>(file, 3102), 17);
  const float singles[] = {62.3F, 8, 2.5F, -1, 7, 14};
  for (std::size_t field = 0; field < 6; ++field) {
    EXPECT_EQ(std::bit_cast<float>(At<std::uint32_t>(file, 3104 + field * 68 + 64)),
              singles[field]);
  }
  EXPECT_EQ(std::bit_cast<double>(At<std::uint64_t>(file, 3512 + 128)), 39166);
  EXPECT_EQ(std::bit_cast<double>(At<std::uint64_t>(file, 3648 + 128)), 39167.5);
  EXPECT_EQ(At<std::uint16_t>(file, 3784), 3);
  EXPECT_EQ(TextAt(file, 3786, 25), Padded("Tosses", 25));
  EXPECT_EQ(TextAt(file, 3811, 25), Padded("Dwarfs", 25));
  EXPECT_EQ(At<std::uint16_t>(file, 3836), 0xFFFF);
  EXPECT_EQ(At<std::uint16_t>(file, 3838), 0xFFFF);
  EXPECT_EQ(TextAt(file, 3840, 256), Padded("Bench Press", 256));
  EXPECT_EQ(TextAt(file, 4096, 768), std::string(768, ' '));
  EXPECT_EQ(TextAt(file, 4864, 256), std::string(256, '\0'));
}

TEST(WorkoutFormat, PutsTheRecordsBackToBack) {
  ExerciseSlots workout;
  workout[51] = FullExercise();

  const Bytes file = EncodeWorkout(workout);

  EXPECT_EQ(file.size(), 266240U);
  EXPECT_EQ(TextAt(file, 51 * 5120 + 3840, 11), "Bench Press");
}

TEST(WorkoutFormat, GivesEveryFieldBack) {
  ExerciseSlots workout;
  workout[0] = FullExercise();
  workout[51] = FullExercise();

  EXPECT_EQ(DecodeWorkout(EncodeWorkout(workout)), workout);
}

TEST(WorkoutFormat, ReadsAShortFileAsFarAsItGoes) {
  ExerciseSlots workout;
  workout[0] = FullExercise();
  Bytes file = EncodeWorkout(workout);
  file.resize(3840 + 5);

  const ExerciseSlots loaded = DecodeWorkout(file);

  EXPECT_EQ(loaded[0].SetValue1[16], 62.3F);
  EXPECT_EQ(loaded[0].ExerciseName.Text(), "Bench");
  EXPECT_EQ(loaded[1], ExerciseRecord());
}

TEST(WorkoutFormat, ReadsAnEmptyFileAsACleanWorkout) {
  EXPECT_EQ(DecodeWorkout({}), ExerciseSlots());
}

TEST(WorkoutFormat, IgnoresWhatIsBehindTheLastRecord) {
  ExerciseSlots workout;
  workout[0] = FullExercise();
  Bytes file = EncodeWorkout(workout);
  file.resize(file.size() + 1000, 'x');

  EXPECT_EQ(DecodeWorkout(file), workout);
}

TEST(WorkoutFormat, ReadsWesternSingleByteNames) {
  Bytes file = EncodeWorkout({});
  const std::string_view name = "D\xE9velopp\xE9 couch\xE9";
  std::copy(name.begin(), name.end(), file.begin() + 3840);

  const ExerciseSlots loaded = DecodeWorkout(file);

  EXPECT_EQ(loaded[0].ExerciseName.Text(), "Développé couché");
  EXPECT_EQ(EncodeWorkout(loaded), file);
}

TEST(WorkoutFormat, KeepsAFlagThatIsNeitherTrueNorFalse) {
  ExerciseSlots workout;
  workout[0].Units = 1;
  EXPECT_EQ(DecodeWorkout(EncodeWorkout(workout))[0].Units, 1);
}

TEST(WorkoutFormat, LoadsTheSameAgainWhateverTheBytes) {
  std::mt19937 random(1);
  Bytes file(kWorkoutFileSize);
  for (Byte& byte : file) byte = static_cast<Byte>(random());

  const Bytes saved = EncodeWorkout(DecodeWorkout(file));

  EXPECT_EQ(EncodeWorkout(DecodeWorkout(saved)), saved);
}

TEST(WorkoutFormat, KeepsBytesThatNoOperationUses) {
  Bytes file = EncodeWorkout({});
  file[4096] = 'r';
  file[4864] = 't';
  EXPECT_EQ(EncodeWorkout(DecodeWorkout(file)), file);
}

TEST(SettingsFormat, PutsEachFieldAtItsOffset) {
  SettingsRecord settings;
  settings.MusicPath = "/music";
  settings.OutputPath = "/player";
  settings.DefaultExerciseTime = 5;
  settings.VoiceIndex = 1;
  settings.VoiceRate = -3;
  settings.VoiceVolume = 100;
  settings.AudioFormat = "14";
  settings.AutoLoadPlaylist = kTrue;
  settings.IncludeWeightValues = kTrue;
  settings.LastWorkoutIndex = 2;

  const Bytes file = EncodeSettings(settings);

  ASSERT_EQ(file.size(), kSettingsFileSize + 2);
  EXPECT_EQ(TextAt(file, 0, 256), Padded("/music", 256));
  EXPECT_EQ(TextAt(file, 256, 256), Padded("/player", 256));
  EXPECT_EQ(At<std::uint16_t>(file, 512), 5);
  EXPECT_EQ(TextAt(file, 514, 6), std::string(6, '\0'));
  EXPECT_EQ(At<std::uint16_t>(file, 520), 1);
  EXPECT_EQ(At<std::uint16_t>(file, 522), 0xFFFD);
  EXPECT_EQ(At<std::uint16_t>(file, 524), 100);
  EXPECT_EQ(At<std::uint16_t>(file, 526), 2);
  EXPECT_EQ(TextAt(file, 528, 2), "14");
  EXPECT_EQ(At<std::uint16_t>(file, 530), 0xFFFF);
  EXPECT_EQ(At<std::uint16_t>(file, 532), 0xFFFF);
  EXPECT_EQ(At<std::uint16_t>(file, 534), 0);
  EXPECT_EQ(At<std::uint16_t>(file, 536), 2);
  EXPECT_EQ(TextAt(file, 538, 16), std::string(16, '\0'));
  EXPECT_EQ(TextAt(file, 554, 768), std::string(768, ' '));
}

TEST(SettingsFormat, HasNothingBetweenVolumeAndFlagsButTheLengthOfAnEmptyFormat) {
  SettingsRecord settings;
  settings.AutoLoadPlaylist = kTrue;

  const Bytes file = EncodeSettings(settings);

  EXPECT_EQ(file.size(), 1320U);
  EXPECT_EQ(At<std::uint16_t>(file, 526), 0);
  EXPECT_EQ(At<std::uint16_t>(file, 528), 0xFFFF);
}

TEST(SettingsFormat, GivesEveryFieldBack) {
  SettingsRecord settings;
  settings.MusicPath = "/Musik für Übungen/走る";
  settings.AudioFormat = "35";
  settings.LastWorkoutIndex = -1;
  EXPECT_EQ(DecodeSettings(EncodeSettings(settings)), settings);
}

TEST(SettingsFormat, HasAFormatOfOneByteACharacterAndAtMost65535) {
  SettingsRecord settings;
  settings.AudioFormat = "é";
  EXPECT_EQ(EncodeSettings(settings).size(), kSettingsFileSize + 1);
  EXPECT_EQ(DecodeSettings(EncodeSettings(settings)).AudioFormat, "é");

  settings.AudioFormat = std::string(70000, '7');
  settings.LastWorkoutIndex = 3;
  const Bytes file = EncodeSettings(settings);
  EXPECT_EQ(file.size(), kLongestSettingsFile);
  EXPECT_EQ(DecodeSettings(file).LastWorkoutIndex, 3);
}

/// Every field but the first path differs from the defaults.
SettingsRecord FullSettings() {
  SettingsRecord settings;
  settings.OutputPath = "/player";
  settings.DefaultExerciseTime = 5;
  settings.ReservedIntegers.bytes[0] = 1;
  settings.VoiceIndex = 2;
  settings.VoiceRate = -3;
  settings.VoiceVolume = 100;
  settings.AudioFormat = "14";
  settings.AutoLoadPlaylist = kTrue;
  settings.IncludeWeightValues = kTrue;
  settings.ReservedInteger.bytes[0] = 1;
  settings.LastWorkoutIndex = 4;
  settings.ReservedBlock.bytes[0] = 1;
  settings.ReservedTexts.bytes[0] = 'r';
  return settings;
}

TEST(SettingsMerge, TakesEveryFieldThatWasChangedHere) {
  SettingsRecord theirs;
  theirs.MusicPath = "/theirs";
  theirs.VoiceRate = 9;
  SettingsRecord expected = FullSettings();
  expected.MusicPath = "/theirs";
  EXPECT_EQ(MergeSettings({}, FullSettings(), theirs), expected);
}

TEST(SettingsMerge, TakesEveryFieldThatWasNotChangedHere) {
  SettingsRecord base;
  base.VoiceRate = 7;
  SettingsRecord ours = base;
  ours.MusicPath = "/ours";
  SettingsRecord expected = FullSettings();
  expected.MusicPath = "/ours";
  EXPECT_EQ(MergeSettings(base, ours, FullSettings()), expected);
}

TEST(SettingsFormat, ReadsNoFurtherThanTheFileGoes) {
  SettingsRecord settings;
  settings.VoiceVolume = 100;
  Bytes file = EncodeSettings(settings);
  StoreLittleEndian<std::uint16_t>(std::span(file).subspan(526), 0xFFFF);

  const SettingsRecord loaded = DecodeSettings(file);

  EXPECT_EQ(loaded.VoiceVolume, 100);
  EXPECT_EQ(loaded.AudioFormat.size(), 1320U - 528U);
  EXPECT_EQ(loaded.LastWorkoutIndex, 0);
}

TEST(SettingsFormat, ReadsAnEmptyFileAsZerosAndBlanks) {
  EXPECT_EQ(DecodeSettings({}).VoiceVolume, 0);
  EXPECT_TRUE(DecodeSettings({}).MusicPath.IsBlank());
}

}  // namespace
}  // namespace repvolta
