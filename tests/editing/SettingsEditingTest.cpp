#include <QLineEdit>
#include <QSlider>

#include "base/ProgramFiles.h"
#include "update/RandomMusicList.h"

#include "support/FormFixture.h"
#include "support/FullDisk.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

/// The settings tab.
class SettingsEditing : public FormFixture {
 protected:
  SettingsEditing() {
    form->ShowVoices({"rms", "slt", "awb"});
    form->ShowFormats();
    state.Voice.Volume = 70;
    form->UpdateSettingsScreen();
    OpenTab(2);
    SaveSettings(state);
  }

  std::string Field(const char* name) { return Get<QLineEdit>(name).text().toStdString(); }

  void SetTime(const std::string& answer) {
    dialogs.asked.clear();
    dialogs.answers = {answer};
    Click("ExerciseTimeButton");
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
  dialogs.answers = {folder.Path() + "other"};
  Click("MusicPathButton");
  EXPECT_THAT(dialogs.asked, ElementsAre("directory", kRecompile, kCompiled));
  EXPECT_EQ(SavedSettings().MusicPath.Text(), folder.Path() + "other");
  EXPECT_EQ(Field("MusicPathTextBox"), folder.Path() + "other");
  EXPECT_EQ(Field("RandomMusicTextBox"), "2 songs found.");
}

TEST_F(SettingsEditing, TheSameMusicPathIsListedAgain) {
  dialogs.answers = {folder.Path() + "music"};
  Click("MusicPathButton");
  EXPECT_THAT(dialogs.asked, ElementsAre("directory", kRecompile, kCompiled));
  EXPECT_EQ(pleaseWait.shown, 1);
}

TEST_F(SettingsEditing, ACancelledMusicPathChangesNothing) {
  const Bytes before = GetFile(kSettingsFile);
  dialogs.answers = {""};
  Click("MusicPathButton");
  EXPECT_THAT(dialogs.asked, ElementsAre("directory"));
  EXPECT_EQ(GetFile(kSettingsFile), before);
  EXPECT_FALSE(fs::exists(kMusicList));
}

TEST_F(SettingsEditing, APathThatWouldBeCutIsRefused) {
  for (const char* button : {"MusicPathButton", "OutputPathButton"}) {
    dialogs.asked.clear();
    dialogs.answers = {"/" + std::string(256, 'x')};
    Click(button);
    ASSERT_THAT(dialogs.asked, SizeIs(2));
    EXPECT_THAT(dialogs.asked[1], HasSubstr("path could not be changed.\rThe path cannot be kept"));
  }
  EXPECT_EQ(state.Settings.MusicPath.Text(), folder.Path() + "music");
  EXPECT_EQ(state.Settings.OutputPath.Text(), folder.Path() + "player");
}

TEST_F(SettingsEditing, ANewOutputPathIsSavedWithoutAMessage) {
  dialogs.answers = {"/elsewhere"};
  Click("OutputPathButton");
  EXPECT_THAT(dialogs.asked, ElementsAre("directory"));
  EXPECT_EQ(SavedSettings().OutputPath.Text(), "/elsewhere");
  EXPECT_EQ(Field("OutputPathTextBox"), "/elsewhere");
}

TEST_F(SettingsEditing, ACancelledOutputPathChangesNothing) {
  dialogs.answers = {""};
  Click("OutputPathButton");
  EXPECT_EQ(SavedSettings().OutputPath.Text(), folder.Path() + "player");
}

TEST_F(SettingsEditing, TypingInTheOutputPathDoesNotChangeTheSetting) {
  QTest::keyClicks(&Get<QLineEdit>("OutputPathTextBox"), "/typed");
  EXPECT_EQ(state.Settings.OutputPath.Text(), folder.Path() + "player");
}

TEST_F(SettingsEditing, SettingsThatCannotBeSavedAreTold) {
  BlockSettings();
  dialogs.answers = {"/elsewhere"};
  Click("OutputPathButton");
  ASSERT_THAT(dialogs.asked, SizeIs(2));
  EXPECT_THAT(dialogs.asked[1], HasSubstr("message|Repvolta|settings.dat could not be"));
  EXPECT_EQ(Field("OutputPathTextBox"), "/elsewhere");
}

TEST_F(SettingsEditing, CompilingListsTheMusicAndCountsIt) {
  PutFile("music/a.mp3", "");
  Click("CompileMusicList");
  EXPECT_THAT(dialogs.asked, ElementsAre(kCompiled));
  EXPECT_EQ(GetTextFile(kMusicList), folder.Path() + "music/a.mp3\n");
  EXPECT_EQ(state.RandomMusicFiles, 1);
  EXPECT_EQ(Field("RandomMusicTextBox"), "1 songs found.");
}

TEST_F(SettingsEditing, CompilingWritesTheListInTheProgramDirectory) {
  fs::current_path("player");
  Click("CompileMusicList");
  EXPECT_TRUE(fs::exists(folder.Path() + kMusicList));
  EXPECT_FALSE(fs::exists(folder.Path() + "player/" + kMusicList));
}

TEST_F(SettingsEditing, CompilingShowsThePleaseWaitWindowMeanwhile) {
  Click("CompileMusicList");
  EXPECT_EQ(pleaseWait.shown, 1);
  EXPECT_FALSE(pleaseWait.visible);
}

TEST_F(SettingsEditing, CompilingNeedsAMusicPath) {
  state.Settings.MusicPath = "  ";
  PutFile(kMusicList, "old\n");
  Click("CompileMusicList");
  EXPECT_THAT(dialogs.asked, ElementsAre("message|Repvolta|No music path has been defined, cannot "
                                         "compile random music file list."));
  EXPECT_EQ(GetTextFile(kMusicList), "old\n");
  EXPECT_EQ(pleaseWait.shown, 0);
}

TEST_F(SettingsEditing, CompilingReplacesAReadOnlyList) {
  PutFile(kMusicList, "old\n");
  fs::permissions(kMusicList, fs::perms::owner_read);
  Click("CompileMusicList");
  EXPECT_EQ(GetTextFile(kMusicList), "");
}

TEST_F(SettingsEditing, AMusicPathThatIsGoneGivesAnEmptyList) {
  fs::remove_all("music");
  Click("CompileMusicList");
  EXPECT_THAT(dialogs.asked, ElementsAre(kCompiled));
  EXPECT_EQ(Field("RandomMusicTextBox"), "0 songs found.");
}

TEST_F(SettingsEditing, AListThatCannotBeWrittenIsToldAndTheWaitingEnds) {
  PutFile(std::string(kMusicList) + "/in the way", "");
  Click("CompileMusicList");
  ASSERT_THAT(dialogs.asked, SizeIs(1));
  EXPECT_THAT(dialogs.asked[0], HasSubstr("message|Repvolta|musiclist.txt could not be"));
  EXPECT_FALSE(pleaseWait.visible);
}

TEST_F(SettingsEditing, TheDefaultTimeIsAskedFor) {
  SetTime("");
  EXPECT_THAT(dialogs.asked,
              ElementsAre("ask|Set Default Exercise Time|Enter the default Exercise time"));
}

TEST_F(SettingsEditing, LeadingNumbersBecomeDefaultTimes) {
  // What is not changed stays 5.
  const std::vector<std::pair<std::string, int>> times = {{"12abc", 12},
                                                          {"abc", 0},
                                                          {" 7 ", 7},
                                                          {"-5", -5},
                                                          {"+3", 3},
                                                          {"1e3", 1000},
                                                          {"1e39", 5},
                                                          {"nan", 0},
                                                          {"inf", 0},
                                                          {"0x10", 0},
                                                          {"1,5", 1},
                                                          {"", 5},
                                                          {"  ", 5},
                                                          {"12.5", 12},
                                                          {"13.5", 14},
                                                          {"32768", 5},
                                                          {"9" + std::string(100000, 'x'), 9}};
  for (const auto& [answer, minutes] : times) {
    state.Settings.DefaultExerciseTime = 5;
    SaveSettings(state);
    SetTime(answer);
    EXPECT_EQ(SavedSettings().DefaultExerciseTime, minutes) << answer.substr(0, 20);
  }
}

TEST_F(SettingsEditing, TheDefaultTimeIsShownAsTheStandardNumberText) {
  SetTime("12");
  EXPECT_EQ(Field("ExerciseTimeTextBox"), " 12");
  SetTime("-3");
  EXPECT_EQ(Field("ExerciseTimeTextBox"), "-3");
}

TEST_F(SettingsEditing, ADefaultTimeThatDoesNotFitIsTold) {
  SetTime("40000");
  EXPECT_EQ(dialogs.asked.back(),
            "message|Repvolta|The default exercise time could not be set.\rThe number is too "
            "large");
}

TEST_F(SettingsEditing, TheDefaultTimeAlsoSavesTheWorkout) {
  state.Workout[0].ExerciseName = "only in memory";
  SetTime("7");
  EXPECT_EQ(Saved()[0].ExerciseName.Text(), "only in memory");
}

TEST_F(SettingsEditing, TheRateIsSavedAndTheVoiceKeepsItsOwn) {
  Get<QSlider>("RateSldr").setValue(4);
  EXPECT_EQ(SavedSettings().VoiceRate, 4);
  EXPECT_EQ(state.Voice.Rate, 0);
}

TEST_F(SettingsEditing, TheVolumeIsSavedAndTheVoiceKeepsItsOwn) {
  QTest::keyClick(&Get<QSlider>("VolumeSldr"), Qt::Key_Home);
  EXPECT_EQ(SavedSettings().VoiceVolume, 0);
  EXPECT_EQ(state.Voice.Volume, 70);
}

TEST_F(SettingsEditing, ASliderIsSavedWhenItIsLetGo) {
  for (const char* name : {"RateSldr", "VolumeSldr"}) {
    auto& slider = Get<QSlider>(name);
    const Bytes before = GetFile(kSettingsFile);
    slider.setSliderDown(true);
    slider.setSliderPosition(7);
    EXPECT_EQ(GetFile(kSettingsFile), before) << name;
    slider.setSliderDown(false);
    EXPECT_NE(GetFile(kSettingsFile), before) << name;
  }
  EXPECT_EQ(SavedSettings().VoiceRate, 7);
  EXPECT_EQ(SavedSettings().VoiceVolume, 7);
}

TEST_F(SettingsEditing, AChosenVoiceSpeaksAtOnceAndIsSaved) {
  QTest::keyClick(&Get<QComboBox>("VoiceCB"), Qt::Key_Down);
  EXPECT_EQ(SavedSettings().VoiceIndex, 1);
  EXPECT_EQ(state.Voice.Voice, 1);
}

TEST_F(SettingsEditing, AChosenFormatIsSavedAsText) {
  EXPECT_EQ(Get<QComboBox>("FormatCB").currentText(), "SAFT16kHz16BitMono");
  Get<QComboBox>("FormatCB").setCurrentIndex(35);
  EXPECT_EQ(SavedSettings().AudioFormat, "35");
  EXPECT_EQ(state.Voice.Format, 35);
}

TEST_F(SettingsEditing, TheFormatsCarryTheirCodes) {
  QComboBox& box = Get<QComboBox>("FormatCB");
  ASSERT_EQ(box.count(), 36);
  for (int i = 0; i < 36; ++i) EXPECT_EQ(box.itemData(i).toInt(), i + 4);
}

TEST_F(SettingsEditing, TheCheckBoxesAreSaved) {
  Click("IncludeWeightValuesCheck");
  Click("AutoLoadPLaylistCheckbox");
  EXPECT_EQ(SavedSettings().IncludeWeightValues, kTrue);
  EXPECT_EQ(SavedSettings().AutoLoadPlaylist, kTrue);
  Click("IncludeWeightValuesCheck");
  Click("AutoLoadPLaylistCheckbox");
  EXPECT_EQ(SavedSettings().IncludeWeightValues, kFalse);
  EXPECT_EQ(SavedSettings().AutoLoadPlaylist, kFalse);
}

TEST_F(SettingsEditing, WhatAnotherSavedMeanwhileIsKeptAndShown) {
  ProgramState other = state;
  other.Settings.OutputPath = "/other";
  other.Settings.AutoLoadPlaylist = kTrue;
  SaveSettings(other);

  Click("IncludeWeightValuesCheck");

  EXPECT_EQ(SavedSettings().OutputPath.Text(), "/other");
  EXPECT_EQ(SavedSettings().IncludeWeightValues, kTrue);
  EXPECT_EQ(Field("OutputPathTextBox"), "/other");
  EXPECT_TRUE(Get<QAbstractButton>("AutoLoadPLaylistCheckbox").isChecked());
}

TEST_F(SettingsEditing, WhatAnotherSavedMeanwhileIsShownAlsoWhereNothingCanBeSaved) {
  ProgramState other = state;
  other.Settings.OutputPath = "/other";
  SaveSettings(other);
  {
    const FullDisk full(0);
    Click("IncludeWeightValuesCheck");
  }
  EXPECT_EQ(state.Settings.OutputPath.Text(), "/other");
  EXPECT_EQ(Field("OutputPathTextBox"), "/other");
}

TEST_F(SettingsEditing, AChoiceByAnAssistiveToolCountsToo) {
  Get<QAbstractButton>("IncludeWeightValuesCheck").setChecked(true);
  Get<QAbstractButton>("AutoLoadPLaylistCheckbox").setChecked(true);
  Get<QComboBox>("VoiceCB").setCurrentIndex(2);
  Get<QSlider>("VolumeSldr").setValue(33);
  EXPECT_EQ(SavedSettings().IncludeWeightValues, kTrue);
  EXPECT_EQ(SavedSettings().AutoLoadPlaylist, kTrue);
  EXPECT_EQ(SavedSettings().VoiceIndex, 2);
  EXPECT_EQ(SavedSettings().VoiceVolume, 33);
}

TEST_F(SettingsEditing, NothingIsSavedWhileTheScreenIsUpdating) {
  const SettingsRecord before = state.Settings;
  state.ScreenUpdating = true;
  Click("IncludeWeightValuesCheck");
  Click("AutoLoadPLaylistCheckbox");
  Get<QSlider>("RateSldr").setValue(4);
  Get<QSlider>("VolumeSldr").setValue(4);
  Get<QComboBox>("VoiceCB").setCurrentIndex(2);
  Get<QComboBox>("FormatCB").setCurrentIndex(2);
  EXPECT_EQ(state.Settings, before);
  EXPECT_EQ(state.Voice.Voice, 0);
  EXPECT_EQ(state.Voice.Format, 14);
}

TEST_F(SettingsEditing, TheScreenShowsTheVoicesRateAndVolumeAndTheStoredRest) {
  state.Settings.VoiceRate = 9;
  state.Settings.VoiceIndex = 2;
  state.Settings.IncludeWeightValues = kTrue;
  state.Settings.AutoLoadPlaylist = 1;  // no true flag
  state.Settings.MusicPath = "  /m  ";
  state.RandomMusicFiles = 4711;
  const SettingsRecord before = state.Settings;
  form->UpdateSettingsScreen();
  EXPECT_EQ(Get<QSlider>("RateSldr").value(), 0);
  EXPECT_EQ(Get<QSlider>("VolumeSldr").value(), 70);
  EXPECT_EQ(Get<QComboBox>("VoiceCB").currentIndex(), 2);
  EXPECT_EQ(Field("ExerciseTimeTextBox"), " 5");
  EXPECT_EQ(Field("MusicPathTextBox"), "/m");
  EXPECT_EQ(Field("RandomMusicTextBox"), "4711 songs found.");
  EXPECT_TRUE(Get<QAbstractButton>("IncludeWeightValuesCheck").isChecked());
  EXPECT_FALSE(Get<QAbstractButton>("AutoLoadPLaylistCheckbox").isChecked());
  EXPECT_EQ(state.Settings, before);
}

TEST_F(SettingsEditing, WithoutVoicesTheBoxSaysWhatToDo) {
  QComboBox& box = Get<QComboBox>("VoiceCB");
  form->ShowVoices({});
  EXPECT_EQ(box.count(), 0);
  EXPECT_EQ(box.placeholderText(), "No voices: install flite or espeak-ng.");
  form->ShowVoices({"rms"});
  EXPECT_EQ(box.placeholderText(), "Choose a voice.");
}

TEST_F(SettingsEditing, AVoiceThatIsNoMoreIsNotReplacedByAnother) {
  state.Settings.VoiceIndex = 7;
  form->ShowVoices({"rms"});
  EXPECT_EQ(Get<QComboBox>("VoiceCB").currentIndex(), -1);
  EXPECT_EQ(state.Settings.VoiceIndex, 7);
}

TEST_F(SettingsEditing, AChosenAudioOutputChangesNothing) {
  form->ShowAudioOutputs({"Loudspeaker", "Headphones"});
  state.Settings.VoiceVolume = 33;  // which a save would store
  const SettingsRecord before = state.Settings;
  const Bytes file = GetFile("settings.dat");
  QComboBox& box = Get<QComboBox>("AudioOutputCB");
  box.setCurrentIndex(1);
  emit box.activated(1);
  EXPECT_EQ(state.Settings, before);
  EXPECT_EQ(GetFile("settings.dat"), file);
}

TEST_F(SettingsEditing, WithoutAudioOutputsTheBoxSaysSo) {
  form->ShowAudioOutputs({});
  QComboBox& box = Get<QComboBox>("AudioOutputCB");
  EXPECT_EQ(box.currentText(), "No audio output object available");
  EXPECT_FALSE(box.isEnabled());
  form->ShowAudioOutputs({"Loudspeaker", "Headphones"});
  EXPECT_EQ(box.currentText(), "Loudspeaker");
  EXPECT_EQ(box.count(), 2);
  EXPECT_TRUE(box.isEnabled());
}

}  // namespace
}  // namespace repvolta
