#include <QLineEdit>
#include <QSlider>

#include "base/ProgramFiles.h"

#include "support/FormFixture.h"

namespace repvolta {
namespace {

using testing::StartsWith;

/// The settings tab, whose settings are saved.
class SettingsScreen : public FormFixture {
 protected:
  SettingsScreen() {
    form->ShowVoices({"rms", "slt", "awb"});
    form->ShowFormats();
    state.Voice.Volume = 70;
    form->UpdateSettingsScreen();
    OpenTab(2);
    SaveSettings(state);
  }

  std::string Field(const char* name) { return Get<QLineEdit>(name).text().toStdString(); }

  void SetTime(const std::string& answer) {
    dialogs.answers = {answer};
    Click("ExerciseTimeButton");
  }
};

TEST_F(SettingsScreen, ShowsAChosenFolderAndHowManySongsItHolds) {
  PutFile("other/a.mp3", "");
  PutFile("other/deep/b.MP3", "");
  dialogs.answers = {folder.Path() + "other"};
  Click("MusicPathButton");
  EXPECT_EQ(Field("MusicPathTextBox"), folder.Path() + "other");
  EXPECT_EQ(Field("RandomMusicTextBox"), "2 songs found.");
}

TEST_F(SettingsScreen, ShowsAChosenOutputPath) {
  dialogs.answers = {"/elsewhere"};
  Click("OutputPathButton");
  EXPECT_EQ(Field("OutputPathTextBox"), "/elsewhere");
}

TEST_F(SettingsScreen, CompilingShowsHowManySongsThereAre) {
  PutFile("music/a.mp3", "");
  Click("CompileMusicList");
  EXPECT_EQ(Field("RandomMusicTextBox"), "1 songs found.");
}

TEST_F(SettingsScreen, TypingInTheOutputPathDoesNotChangeTheSetting) {
  QTest::keyClicks(&Get<QLineEdit>("OutputPathTextBox"), "/typed");
  EXPECT_EQ(state.Settings.OutputPath.Text(), folder.Path() + "player");
}

TEST_F(SettingsScreen, TheDefaultTimeIsShownAsTheStandardNumberText) {
  SetTime("12");
  EXPECT_EQ(Field("ExerciseTimeTextBox"), " 12");
  SetTime("-3");
  EXPECT_EQ(Field("ExerciseTimeTextBox"), "-3");
}

TEST_F(SettingsScreen, ACommandThatFailsSaysWhatDidNotHappen) {
  const std::string path = "/" + std::string(256, 'x');
  dialogs.answers = {path, path, "40000"};
  Click("MusicPathButton");
  EXPECT_THAT(dialogs.asked.back(),
              StartsWith("message|Repvolta|The music path could not be changed.\rThe path"));
  Click("OutputPathButton");
  EXPECT_THAT(dialogs.asked.back(),
              StartsWith("message|Repvolta|The output path could not be changed.\rThe path"));
  Click("ExerciseTimeButton");
  EXPECT_EQ(dialogs.asked.back(),
            "message|Repvolta|The default exercise time could not be set.\rThe number is too "
            "large");
}

TEST_F(SettingsScreen, TheRateIsSaved) {
  Get<QSlider>("RateSldr").setValue(4);
  EXPECT_EQ(SavedSettings().VoiceRate, 4);
}

TEST_F(SettingsScreen, TheVolumeIsSavedByKeyToo) {
  QTest::keyClick(&Get<QSlider>("VolumeSldr"), Qt::Key_Home);
  EXPECT_EQ(SavedSettings().VoiceVolume, 0);
}

TEST_F(SettingsScreen, ASliderIsSavedWhenItIsLetGo) {
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

TEST_F(SettingsScreen, AVoiceChosenByKeyIsSaved) {
  QTest::keyClick(&Get<QComboBox>("VoiceCB"), Qt::Key_Down);
  EXPECT_EQ(SavedSettings().VoiceIndex, 1);
  EXPECT_EQ(state.Voice.Voice, 1);
}

TEST_F(SettingsScreen, AChosenFormatIsSaved) {
  EXPECT_EQ(Get<QComboBox>("FormatCB").currentText(), "SAFT16kHz16BitMono");
  Get<QComboBox>("FormatCB").setCurrentIndex(35);
  EXPECT_EQ(SavedSettings().AudioFormat, "35");
  EXPECT_EQ(state.Voice.Format, 35);
}

TEST_F(SettingsScreen, TheFormatsCarryTheirCodes) {
  QComboBox& box = Get<QComboBox>("FormatCB");
  ASSERT_EQ(box.count(), 36);
  for (int i = 0; i < 36; ++i) EXPECT_EQ(box.itemData(i).toInt(), i + 4);
}

TEST_F(SettingsScreen, TheCheckBoxesAreSaved) {
  Click("IncludeWeightValuesCheck");
  Click("AutoLoadPLaylistCheckbox");
  EXPECT_EQ(SavedSettings().IncludeWeightValues, kTrue);
  EXPECT_EQ(SavedSettings().AutoLoadPlaylist, kTrue);
  Click("IncludeWeightValuesCheck");
  Click("AutoLoadPLaylistCheckbox");
  EXPECT_EQ(SavedSettings().IncludeWeightValues, kFalse);
  EXPECT_EQ(SavedSettings().AutoLoadPlaylist, kFalse);
}

TEST_F(SettingsScreen, ThePlayListForThePlayerIsOffAtFirstAndKeptInTheOptions) {
  const auto& box = Get<QAbstractButton>("PlayerPlayListCheck");
  EXPECT_EQ(box.text().remove('&'), "Also write a play list for the player");
  EXPECT_FALSE(box.isChecked());
  Click("PlayerPlayListCheck");
  EXPECT_EQ(GetTextFile(kOptionsFile), "play-list-for-player = yes\n");
  state.Options = {};
  form->UpdateSettingsScreen();
  EXPECT_FALSE(box.isChecked());
  EXPECT_EQ(GetTextFile(kOptionsFile), "play-list-for-player = yes\n");
}

TEST_F(SettingsScreen, WhatAnotherSavedMeanwhileIsShown) {
  ProgramState other = state;
  other.Settings.OutputPath = "/other";
  other.Settings.AutoLoadPlaylist = kTrue;
  SaveSettings(other);

  Click("IncludeWeightValuesCheck");

  EXPECT_EQ(Field("OutputPathTextBox"), "/other");
  EXPECT_TRUE(Get<QAbstractButton>("AutoLoadPLaylistCheckbox").isChecked());
}

TEST_F(SettingsScreen, AChoiceByAnAssistiveToolCountsToo) {
  Get<QAbstractButton>("IncludeWeightValuesCheck").setChecked(true);
  Get<QAbstractButton>("AutoLoadPLaylistCheckbox").setChecked(true);
  Get<QComboBox>("VoiceCB").setCurrentIndex(2);
  Get<QSlider>("VolumeSldr").setValue(33);
  EXPECT_EQ(SavedSettings().IncludeWeightValues, kTrue);
  EXPECT_EQ(SavedSettings().AutoLoadPlaylist, kTrue);
  EXPECT_EQ(SavedSettings().VoiceIndex, 2);
  EXPECT_EQ(SavedSettings().VoiceVolume, 33);
}

TEST_F(SettingsScreen, NothingIsSavedWhileTheScreenIsUpdating) {
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

TEST_F(SettingsScreen, TheScreenShowsTheVoicesRateAndVolumeAndTheStoredRest) {
  state.Settings.VoiceRate = 9;
  state.Settings.VoiceIndex = 2;
  state.Settings.IncludeWeightValues = kTrue;
  state.Settings.AutoLoadPlaylist = 1;  // any value but kTrue is false
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

TEST_F(SettingsScreen, WithoutVoicesTheBoxSaysWhatToDo) {
  QComboBox& box = Get<QComboBox>("VoiceCB");
  form->ShowVoices({});
  EXPECT_EQ(box.count(), 0);
  EXPECT_EQ(box.placeholderText(), "No voices: install flite or espeak-ng.");
  form->ShowVoices({"rms"});
  EXPECT_EQ(box.placeholderText(), "Choose a voice.");
}

TEST_F(SettingsScreen, AVoiceThatIsNoMoreIsNotReplacedByAnother) {
  state.Settings.VoiceIndex = 7;
  form->ShowVoices({"rms"});
  EXPECT_EQ(Get<QComboBox>("VoiceCB").currentIndex(), -1);
  EXPECT_EQ(state.Settings.VoiceIndex, 7);
}

TEST_F(SettingsScreen, AChosenAudioOutputChangesNothing) {
  form->ShowAudioOutputs({"Loudspeaker", "Headphones"});
  state.Settings.VoiceVolume = 33;  // a save would store this
  const SettingsRecord before = state.Settings;
  const Bytes file = GetFile("settings.dat");
  QComboBox& box = Get<QComboBox>("AudioOutputCB");
  box.setCurrentIndex(1);
  Q_EMIT box.activated(1);
  EXPECT_EQ(state.Settings, before);
  EXPECT_EQ(GetFile("settings.dat"), file);
}

TEST_F(SettingsScreen, WithoutAudioOutputsTheBoxSaysSo) {
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
