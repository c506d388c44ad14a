#include <filesystem>
#include <stdexcept>
#include <utility>

#include "app/Options.h"
#include "app/Settings.h"
#include "base/FileError.h"
#include "base/ProgramFiles.h"
#include "editing/SettingsEditing.h"
#include "update/RandomMusicList.h"

#include "support/EditorFixture.h"
#include "support/FullDisk.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;
using testing::ThrowsMessage;

/// The settings tab, whose settings are saved.
class SettingsEditing : public EditorFixture {
 protected:
  SettingsEditing() {
    state.Voice.Volume = 70;
    SaveSettings(state);
    screen.UpdateSettingsScreen();
  }

  void ChooseMusicPath(const std::string& path) {
    dialogs.answers = {path};
    MusicPathButton_Click(editor);
  }

  void ChooseOutputPath(const std::string& path) {
    dialogs.answers = {path};
    OutputPathButton_Click(editor);
  }

  void SetTime(const std::string& answer) {
    dialogs.asked.clear();
    dialogs.answers = {answer};
    ExerciseTimeButton_Click(editor);
  }

  static constexpr const char* kCompiled =
      "message|Repvolta|The random music list has been compiled.";
  static constexpr const char* kRecompile =
      "message|Repvolta|You have changed the music path. The random music file list must now be "
      "recompiled as well.";
};

TEST_F(SettingsEditing, ANewMusicPathIsSavedAndItsMusicListed) {
  PutFile("other/a.mp3", "");
  PutFile("other/deep/b.MP3", "");
  ChooseMusicPath(folder.Path() + "other");
  EXPECT_THAT(dialogs.asked, ElementsAre("directory", kRecompile, kCompiled));
  EXPECT_EQ(SavedSettings().MusicPath.Text(), folder.Path() + "other");
  EXPECT_EQ(screen.settings.MusicPath.Text(), folder.Path() + "other");
  EXPECT_EQ(screen.randomMusicFiles, 2);
}

TEST_F(SettingsEditing, TheSameMusicPathIsListedAgain) {
  ChooseMusicPath(folder.Path() + "music");
  EXPECT_THAT(dialogs.asked, ElementsAre("directory", kRecompile, kCompiled));
  EXPECT_EQ(pleaseWait.shown, 1);
}

TEST_F(SettingsEditing, ACancelledMusicPathChangesNothing) {
  const Bytes before = GetFile(kSettingsFile);
  ChooseMusicPath("");
  EXPECT_THAT(dialogs.asked, ElementsAre("directory"));
  EXPECT_EQ(GetFile(kSettingsFile), before);
  EXPECT_FALSE(fs::exists(kMusicList));
}

TEST_F(SettingsEditing, APathThatWouldBeCutIsRefused) {
  const std::string path = "/" + std::string(256, 'x');
  for (const auto choose : {MusicPathButton_Click, OutputPathButton_Click}) {
    dialogs.answers = {path};
    EXPECT_THAT([&] { choose(editor); },
                ThrowsMessage<std::length_error>(StartsWith("The path cannot be kept")));
  }
  EXPECT_EQ(state.Settings.MusicPath.Text(), folder.Path() + "music");
  EXPECT_EQ(state.Settings.OutputPath.Text(), folder.Path() + "player");
}

TEST_F(SettingsEditing, ANewOutputPathIsSavedWithoutAMessage) {
  ChooseOutputPath("/elsewhere");
  EXPECT_THAT(dialogs.asked, ElementsAre("directory"));
  EXPECT_EQ(SavedSettings().OutputPath.Text(), "/elsewhere");
  EXPECT_EQ(screen.settings.OutputPath.Text(), "/elsewhere");
}

TEST_F(SettingsEditing, ACancelledOutputPathChangesNothing) {
  ChooseOutputPath("");
  EXPECT_EQ(SavedSettings().OutputPath.Text(), folder.Path() + "player");
}

TEST_F(SettingsEditing, SettingsThatCannotBeSavedAreTold) {
  BlockSettings();
  EXPECT_THAT([this] { ChooseOutputPath("/elsewhere"); },
              ThrowsMessage<UnsavedChange>(StartsWith("settings.dat could not be")));
  EXPECT_EQ(screen.settings.OutputPath.Text(), "/elsewhere");
}

TEST_F(SettingsEditing, CompilingListsTheMusicAndCountsIt) {
  PutFile("music/a.mp3", "");
  CompileMusicList_Click(editor);
  EXPECT_THAT(dialogs.asked, ElementsAre(kCompiled));
  EXPECT_EQ(GetTextFile(kMusicList), folder.Path() + "music/a.mp3\n");
  EXPECT_EQ(state.RandomMusicFiles, 1);
  EXPECT_EQ(screen.randomMusicFiles, 1);
}

TEST_F(SettingsEditing, CompilingWritesTheListInTheProgramDirectory) {
  fs::current_path("player");
  CompileMusicList_Click(editor);
  EXPECT_TRUE(fs::exists(folder.Path() + kMusicList));
  EXPECT_FALSE(fs::exists(folder.Path() + "player/" + kMusicList));
}

TEST_F(SettingsEditing, CompilingShowsThePleaseWaitWindowMeanwhile) {
  CompileMusicList_Click(editor);
  EXPECT_EQ(pleaseWait.shown, 1);
  EXPECT_FALSE(pleaseWait.visible);
}

TEST_F(SettingsEditing, CompilingNeedsAMusicPath) {
  state.Settings.MusicPath = "  ";
  PutFile(kMusicList, "old\n");
  CompileMusicList_Click(editor);
  EXPECT_THAT(dialogs.asked, ElementsAre("message|Repvolta|No music path has been defined, cannot "
                                         "compile random music file list."));
  EXPECT_EQ(GetTextFile(kMusicList), "old\n");
  EXPECT_EQ(pleaseWait.shown, 0);
}

TEST_F(SettingsEditing, CompilingReplacesAReadOnlyList) {
  PutFile(kMusicList, "old\n");
  fs::permissions(kMusicList, fs::perms::owner_read);
  CompileMusicList_Click(editor);
  EXPECT_EQ(GetTextFile(kMusicList), "");
}

TEST_F(SettingsEditing, AMusicPathThatIsGoneGivesAnEmptyList) {
  fs::remove_all("music");
  screen.randomMusicFiles = 7;
  CompileMusicList_Click(editor);
  EXPECT_THAT(dialogs.asked, ElementsAre(kCompiled));
  EXPECT_EQ(screen.randomMusicFiles, 0);
}

TEST_F(SettingsEditing, AListThatCannotBeWrittenIsToldAndTheWaitingEnds) {
  PutFile(std::string(kMusicList) + "/in the way", "");
  EXPECT_THAT([this] { CompileMusicList_Click(editor); },
              ThrowsMessage<FileError>(StartsWith("musiclist.txt could not be")));
  EXPECT_THAT(dialogs.asked, IsEmpty());
  EXPECT_EQ(pleaseWait.shown, 1);
  EXPECT_FALSE(pleaseWait.visible);
}

TEST_F(SettingsEditing, TheDefaultTimeIsAskedFor) {
  SetTime("");
  EXPECT_THAT(dialogs.asked,
              ElementsAre("ask|Set Default Exercise Time|Enter the default Exercise time"));
}

TEST_F(SettingsEditing, LeadingNumbersBecomeDefaultTimes) {
  // What is not changed stays 5.
  const std::vector<std::pair<std::string, int>> times = {
      {"12abc", 12}, {"abc", 0}, {" 7 ", 7},   {"-5", -5},   {"+3", 3},
      {"1e3", 1000}, {"nan", 0}, {"inf", 0},   {"0x10", 0},  {"1,5", 1},
      {"", 5},       {"  ", 5},  {"12.5", 12}, {"13.5", 14}, {"9" + std::string(100000, 'x'), 9}};
  for (const auto& [answer, minutes] : times) {
    state.Settings.DefaultExerciseTime = 5;
    SaveSettings(state);
    SetTime(answer);
    EXPECT_EQ(SavedSettings().DefaultExerciseTime, minutes) << answer.substr(0, 20);
  }
}

TEST_F(SettingsEditing, TheDefaultTimeIsShown) {
  SetTime("12");
  EXPECT_EQ(screen.settings.DefaultExerciseTime, 12);
}

TEST_F(SettingsEditing, ADefaultTimeThatDoesNotFitIsTold) {
  for (const char* answer : {"32768", "1e39"}) {
    EXPECT_THAT([&] { SetTime(answer); },
                ThrowsMessage<std::overflow_error>("The number is too large"));
    EXPECT_EQ(state.Settings.DefaultExerciseTime, 5) << answer;
    EXPECT_EQ(SavedSettings().DefaultExerciseTime, 5) << answer;
  }
}

TEST_F(SettingsEditing, TheDefaultTimeAlsoSavesTheWorkout) {
  state.Workout[0].ExerciseName = "only in memory";
  SetTime("7");
  EXPECT_EQ(Saved()[0].ExerciseName.Text(), "only in memory");
}

TEST_F(SettingsEditing, TheRateIsSavedAndTheVoiceKeepsItsOwn) {
  RateSldr_Change(editor, 4);
  EXPECT_EQ(SavedSettings().VoiceRate, 4);
  EXPECT_EQ(state.Voice.Rate, 0);
}

TEST_F(SettingsEditing, TheVolumeIsSavedAndTheVoiceKeepsItsOwn) {
  VolumeSldr_Change(editor, 0);
  EXPECT_EQ(SavedSettings().VoiceVolume, 0);
  EXPECT_EQ(state.Voice.Volume, 70);
}

TEST_F(SettingsEditing, AChosenVoiceSpeaksAtOnceAndIsSaved) {
  VoiceCB_Click(editor, 1);
  EXPECT_EQ(SavedSettings().VoiceIndex, 1);
  EXPECT_EQ(state.Voice.Voice, 1);
}

TEST_F(SettingsEditing, AChosenFormatIsSavedAsText) {
  FormatCB_Change(editor, 35);
  EXPECT_EQ(SavedSettings().AudioFormat, "35");
  EXPECT_EQ(state.Voice.Format, 35);
}

TEST_F(SettingsEditing, TheCheckBoxesAreSaved) {
  IncludeWeightValuesCheck_Click(editor, CheckBox::kTicked);
  AutoLoadPLaylistCheckbox_Click(editor, CheckBox::kTicked);
  EXPECT_EQ(SavedSettings().IncludeWeightValues, kTrue);
  EXPECT_EQ(SavedSettings().AutoLoadPlaylist, kTrue);
  IncludeWeightValuesCheck_Click(editor, CheckBox::kUnticked);
  AutoLoadPLaylistCheckbox_Click(editor, CheckBox::kUnticked);
  EXPECT_EQ(SavedSettings().IncludeWeightValues, kFalse);
  EXPECT_EQ(SavedSettings().AutoLoadPlaylist, kFalse);
}

TEST_F(SettingsEditing, ThePlayListForThePlayerIsAnOption) {
  const Bytes settings = GetFile(kSettingsFile);
  PlayerPlayListCheck_Click(editor, CheckBox::kTicked);
  EXPECT_EQ(GetTextFile(kOptionsFile), "play-list-for-player = yes\n");
  PlayerPlayListCheck_Click(editor, CheckBox::kUnticked);
  EXPECT_EQ(GetTextFile(kOptionsFile), "play-list-for-player = no\n");
  EXPECT_EQ(GetFile(kSettingsFile), settings);
}

TEST_F(SettingsEditing, OptionsThatAnotherSavedMeanwhileAreKeptAndShown) {
  PutFile(kOptionsFile, "# Theirs\nplayer-mount-point = /mnt\n");
  PlayerPlayListCheck_Click(editor, CheckBox::kTicked);
  EXPECT_EQ(GetTextFile(kOptionsFile),
            "# Theirs\nplayer-mount-point = /mnt\nplay-list-for-player = yes\n");
  EXPECT_EQ(Get(state.Options, kPlayerMountPoint), "/mnt");
}

TEST_F(SettingsEditing, OptionsThatCannotBeSavedAreTold) {
  PutFile(std::string(kOptionsFile) + "/in the way", "");
  EXPECT_THAT([this] { PlayerPlayListCheck_Click(editor, CheckBox::kTicked); },
              ThrowsMessage<UnsavedChange>(StartsWith("options.conf could not be")));
  EXPECT_TRUE(Get(state.Options, kPlayListForPlayer));
}

TEST_F(SettingsEditing, WhatAnotherSavedMeanwhileIsKeptAndShown) {
  ProgramState other = state;
  other.Settings.OutputPath = "/other";
  other.Settings.AutoLoadPlaylist = kTrue;
  SaveSettings(other);

  IncludeWeightValuesCheck_Click(editor, CheckBox::kTicked);

  EXPECT_EQ(SavedSettings().OutputPath.Text(), "/other");
  EXPECT_EQ(SavedSettings().IncludeWeightValues, kTrue);
  EXPECT_EQ(screen.settings.OutputPath.Text(), "/other");
  EXPECT_EQ(screen.settings.AutoLoadPlaylist, kTrue);
}

TEST_F(SettingsEditing, WhatAnotherSavedMeanwhileIsShownAlsoWhereNothingCanBeSaved) {
  ProgramState other = state;
  other.Settings.OutputPath = "/other";
  SaveSettings(other);
  {
    const FullDisk full(0);
    EXPECT_THROW(IncludeWeightValuesCheck_Click(editor, CheckBox::kTicked), UnsavedChange);
  }
  EXPECT_EQ(state.Settings.OutputPath.Text(), "/other");
  EXPECT_EQ(screen.settings.OutputPath.Text(), "/other");
}

TEST_F(SettingsEditing, NothingIsSavedWhileTheScreenIsUpdating) {
  const SettingsRecord before = state.Settings;
  state.ScreenUpdating = true;
  IncludeWeightValuesCheck_Click(editor, CheckBox::kTicked);
  AutoLoadPLaylistCheckbox_Click(editor, CheckBox::kTicked);
  PlayerPlayListCheck_Click(editor, CheckBox::kTicked);
  RateSldr_Change(editor, 4);
  VolumeSldr_Change(editor, 4);
  VoiceCB_Click(editor, 2);
  FormatCB_Change(editor, 2);
  EXPECT_EQ(state.Settings, before);
  EXPECT_EQ(state.Voice.Voice, 0);
  EXPECT_EQ(state.Voice.Format, 14);
  EXPECT_EQ(state.Options, OptionLines());
}

}  // namespace
}  // namespace repvolta
