#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RecordFormat.h"
#include "app/Settings.h"
#include "base/FileError.h"

#include "support/AtFlush.h"
#include "support/TemporaryFolder.h"
#include "support/UnreadableFile.h"

namespace repvolta {
namespace {

using testing::StrEq;
using testing::ThrowsMessage;

/// A fresh program directory.
class SettingsFile : public testing::Test {
 protected:
  SettingsFile() { state.ProgramDirectory = folder.Path(); }

  TemporaryFolder folder;
  ProgramState state;
};

TEST_F(SettingsFile, HasDefaultsWhenItIsMissing) {
  state.Settings.MusicPath = "/music";
  LoadSettings(state);
  EXPECT_TRUE(state.Settings.MusicPath.IsBlank());
  EXPECT_EQ(state.Settings.VoiceVolume, 70);
  EXPECT_EQ(state.Settings.DefaultExerciseTime, 0);
  EXPECT_EQ(state.Settings.IncludeWeightValues, kFalse);
}

TEST_F(SettingsFile, GivesBackWhatWasSaved) {
  state.Settings.MusicPath = "/Musik/Übung";
  state.Settings.AudioFormat = "3";
  const SettingsRecord saved = state.Settings;
  SaveSettings(state);
  state.Settings = {};

  LoadSettings(state);

  EXPECT_EQ(state.Settings, saved);
}

TEST_F(SettingsFile, IsKeptWhenItCouldNotBeRead) {
  state.Settings.MusicPath = "/music";
  SaveSettings(state);
  const Bytes before = GetFile("settings.dat");
  {
    const UnreadableFile unreadable("settings.dat");
    EXPECT_THROW(LoadSettings(state), FileError);
  }
  state.Settings = {};

  EXPECT_THAT([&] { SaveSettings(state); },
              ThrowsMessage<FileError>(
                  StrEq("settings.dat is kept as it was: It could not be read at the start")));
  EXPECT_EQ(GetFile("settings.dat"), before);

  LoadSettings(state);
  SaveSettings(state);
  EXPECT_EQ(GetFile("settings.dat"), before);
}

TEST_F(SettingsFile, IsSavedInTheProgramDirectory) {
  std::filesystem::current_path("/");
  SaveSettings(state);
  EXPECT_TRUE(std::filesystem::exists(folder.Path() + "settings.dat"));
}

TEST_F(SettingsFile, IsNotSavedWhereTheDirectoryIsGone) {
  state.ProgramDirectory = folder.Path() + "gone/";
  EXPECT_THROW(SaveSettings(state), FileError);
}

TEST_F(SettingsFile, EndsWhereItsAudioFormatClaimsMore) {
  SettingsRecord settings;
  settings.AudioFormat = "14";
  settings.IncludeWeightValues = kTrue;
  Bytes file = EncodeSettings(settings);
  file[526] = file[527] = 0xFF;
  PutFile("settings.dat", file);

  LoadSettings(state);

  EXPECT_EQ(state.Settings.AudioFormat.substr(0, 2), "14");
  EXPECT_EQ(state.Settings.IncludeWeightValues, kFalse);
  EXPECT_EQ(state.Settings.LastWorkoutIndex, 0);
}

TEST_F(SettingsFile, IsReadAsFarAsSettingsCanGo) {
  SettingsRecord settings;
  settings.AudioFormat = std::string(0xFFFF, '7');
  settings.ReservedTexts.bytes.back() = 'x';
  Bytes file = EncodeSettings(settings);
  ASSERT_EQ(file.size(), 1320U + 0xFFFFU);
  file.resize(file.size() + 100000, 'x');
  PutFile("settings.dat", file);

  LoadSettings(state);

  EXPECT_EQ(state.Settings, settings);
}

/// The settings of this program and of another that saves the same file.
class SettingsOfTwo : public SettingsFile {
 protected:
  SettingsOfTwo() {
    state.Settings.MusicPath = "/music";
    state.Settings.OutputPath = "/player";
    SaveSettings(state);
    other.ProgramDirectory = folder.Path();
    LoadSettings(other);
  }

  /// Another program's settings that a synchronised folder brings in.
  static void Bring(const SettingsRecord& settings) {
    PutFile("brought", EncodeSettings(settings));
    std::filesystem::rename("brought", "settings.dat");
  }

  ProgramState other;
};

TEST_F(SettingsOfTwo, AreBothKept) {
  other.Settings.MusicPath = "/other";
  SaveSettings(other);
  state.Settings.OutputPath = "/mine";

  SaveSettings(state);

  const SettingsRecord saved = DecodeSettings(GetFile("settings.dat"));
  EXPECT_EQ(saved.MusicPath.Text(), "/other");
  EXPECT_EQ(saved.OutputPath.Text(), "/mine");
  EXPECT_EQ(state.Settings, saved);
}

TEST_F(SettingsOfTwo, AreThoseOfTheLastWhereBothChangedOne) {
  other.Settings.MusicPath = "/other";
  SaveSettings(other);
  state.Settings.MusicPath = "/mine";
  SaveSettings(state);
  EXPECT_EQ(DecodeSettings(GetFile("settings.dat")).MusicPath.Text(), "/mine");
}

TEST_F(SettingsOfTwo, AreBothKeptSaveAfterSave) {
  for (const std::int16_t value : std::initializer_list<std::int16_t>{1, 2, 3}) {
    state.Settings.VoiceRate = value;
    SaveSettings(state);
    other.Settings.VoiceVolume = value;
    SaveSettings(other);
  }
  SaveSettings(state);
  EXPECT_EQ(state.Settings.VoiceVolume, 3);
  EXPECT_EQ(other.Settings.VoiceRate, 3);
  EXPECT_EQ(GetFile("settings.dat"), EncodeSettings(state.Settings));
}

TEST_F(SettingsOfTwo, AreBothKeptWhereOneCameBeforeTheFirst) {
  std::filesystem::remove("settings.dat");
  LoadSettings(state);
  SaveSettings(other);
  state.Settings.VoiceRate = 4;
  SaveSettings(state);
  EXPECT_EQ(state.Settings.MusicPath.Text(), "/music");
  EXPECT_EQ(state.Settings.VoiceRate, 4);
}

TEST_F(SettingsOfTwo, AreKeptInMemoryWhereTheFileIsGone) {
  std::filesystem::remove("settings.dat");
  SaveSettings(state);
  EXPECT_EQ(DecodeSettings(GetFile("settings.dat")).MusicPath.Text(), "/music");
}

TEST_F(SettingsOfTwo, AreNotReplacedByTheBlanksOfHalfAFile) {
  state.Settings.AudioFormat = "14";
  SaveSettings(state);
  const Bytes whole = GetFile("settings.dat");
  PutFile("settings.dat", std::span(whole).first(300));
  SaveSettings(state);
  EXPECT_EQ(GetFile("settings.dat"), whole);

  PutFile("settings.dat", "");
  SaveSettings(state);
  EXPECT_EQ(GetFile("settings.dat"), whole);
}

TEST_F(SettingsOfTwo, AreBothKeptWhereOneComesInDuringTheSave) {
  other.Settings.MusicPath = "/other";
  const AtFlush synced([&] { Bring(other.Settings); });
  state.Settings.OutputPath = "/mine";

  SaveSettings(state);

  EXPECT_EQ(state.Settings.MusicPath.Text(), "/other");
  EXPECT_EQ(state.Settings.OutputPath.Text(), "/mine");
  EXPECT_EQ(GetFile("settings.dat"), EncodeSettings(state.Settings));
}

TEST_F(SettingsOfTwo, AreThoseOfTheFileWhereOthersComeInAgainAndAgain) {
  int brought = 0;
  std::function<void()> bringAgain = [&] {
    other.Settings.VoiceRate = static_cast<std::int16_t>(++brought);
    Bring(other.Settings);
    AtFlush::Then() = bringAgain;
  };
  const AtFlush synced(bringAgain);
  state.Settings.OutputPath = "/mine";

  EXPECT_THAT([&] { SaveSettings(state); },
              ThrowsMessage<FileError>(
                  StrEq("settings.dat could not be written: Another program goes on changing it")));

  EXPECT_EQ(brought, 3);
  EXPECT_EQ(GetFile("settings.dat"), EncodeSettings(other.Settings));
}

TEST_F(SettingsOfTwo, AreThoseOfTheFileWhereItCannotBeRead) {
  other.Settings.MusicPath = "/other";
  SaveSettings(other);
  const Bytes before = GetFile("settings.dat");
  state.Settings.OutputPath = "/mine";
  {
    const UnreadableFile unreadable("settings.dat");
    EXPECT_THAT(
        [&] { SaveSettings(state); },
        ThrowsMessage<FileError>(StrEq("settings.dat could not be read: Permission denied")));
  }
  EXPECT_EQ(GetFile("settings.dat"), before);
  EXPECT_EQ(state.Settings.OutputPath.Text(), "/mine");

  SaveSettings(state);

  EXPECT_EQ(state.Settings.MusicPath.Text(), "/other");
  EXPECT_EQ(DecodeSettings(GetFile("settings.dat")).OutputPath.Text(), "/mine");
}

TEST_F(SettingsOfTwo, AreThoseOfTheFileWhereTheOtherTakesAChangeBack) {
  other.Settings.MusicPath = "/other";
  SaveSettings(other);
  ReloadChangedSettings(state);
  other.Settings.MusicPath = "/music";
  SaveSettings(other);
  SaveSettings(state);
  EXPECT_EQ(state.Settings.MusicPath.Text(), "/music");
}

TEST_F(SettingsOfTwo, AreStillMergedWhereTheyCouldNotBeWritten) {
  other.Settings.MusicPath = "/other";
  SaveSettings(other);
  state.Settings.OutputPath = "/mine";
  PutFile(".settings.dat.new/in the way", "");
  EXPECT_THROW(SaveSettings(state), FileError);
  std::filesystem::remove_all(".settings.dat.new");

  SaveSettings(state);

  EXPECT_EQ(state.Settings.MusicPath.Text(), "/other");
  EXPECT_EQ(DecodeSettings(GetFile("settings.dat")).OutputPath.Text(), "/mine");
}

TEST_F(SettingsOfTwo, AreNotLoadedAgainWhereNoneCouldBeReadAtTheStart) {
  other.Settings.OutputPath = "/other";
  SaveSettings(other);
  state.Settings.MusicPath = "/typed";
  state.SettingsAreUnread = true;
  ReloadChangedSettings(state);
  EXPECT_EQ(state.Settings.MusicPath.Text(), "/typed");
  EXPECT_EQ(state.Settings.OutputPath.Text(), "/player");
}

TEST_F(SettingsOfTwo, AreOnlyLoadedAgainWhereTheFileIsAnother) {
  state.Settings.MusicPath = "/typed";
  ReloadChangedSettings(state);
  EXPECT_EQ(state.Settings.MusicPath.Text(), "/typed");

  other.Settings.VoiceRate = -2;
  SaveSettings(other);
  ReloadChangedSettings(state);
  EXPECT_EQ(state.Settings.MusicPath.Text(), "/typed");
  EXPECT_EQ(state.Settings.VoiceRate, -2);
}

}  // namespace
}  // namespace repvolta
