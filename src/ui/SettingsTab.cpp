#include "ui/SettingsTab.h"

#include "app/Options.h"
#include "base/Numbers.h"
#include "editing/SettingsEditing.h"
#include "speech/SoundFormats.h"

#include "ui_SettingsTab.h"

namespace repvolta {
namespace {

CheckBox TickOf(bool checked) { return checked ? CheckBox::kTicked : CheckBox::kUnticked; }

void Fill(QComboBox* box, const std::vector<std::string>& names) {
  box->clear();
  for (const std::string& name : names) box->addItem(QString::fromStdString(name));
}

}  // namespace

SettingsTab::SettingsTab(Editor& editor, Handlers& handlers)
    : editor_(editor), handlers_(handlers), ui_(std::make_unique<Ui::SettingsTab>()) {
  ui_->setupUi(this);
  ConnectButtons();
  ConnectVoice();
  ConnectCheckBoxes();
}

SettingsTab::~SettingsTab() = default;

void SettingsTab::ConnectButtons() {
  handlers_.OnClickApart(ui_->MusicPathButton, "The music path could not be changed.",
                         [this] { MusicPathButton_Click(editor_); });
  handlers_.OnClickApart(ui_->CompileMusicList, "The random music list could not be compiled.",
                         [this] { CompileMusicList_Click(editor_); });
  handlers_.OnClickApart(ui_->OutputPathButton, "The output path could not be changed.",
                         [this] { OutputPathButton_Click(editor_); });
  handlers_.OnClick(ui_->ExerciseTimeButton, "The default exercise time could not be set.",
                    [this] { ExerciseTimeButton_Click(editor_); });
}

/// The choice is kept even if the workout could not be loaded again, since the control already
/// shows it.
void SettingsTab::Keep(const std::function<void()>& handler) {
  handlers_.RunApart("The choice could not be kept.", handler);
}

void SettingsTab::ConnectVoice() {
  // The sliders report a value only when they are released.
  ui_->RateSldr->setTracking(false);
  ui_->VolumeSldr->setTracking(false);
  connect(ui_->RateSldr, &QSlider::valueChanged, this,
          [this](int value) { Keep([&] { RateSldr_Change(editor_, value); }); });
  connect(ui_->VolumeSldr, &QSlider::valueChanged, this,
          [this](int value) { Keep([&] { VolumeSldr_Change(editor_, value); }); });
  connect(ui_->VoiceCB, &QComboBox::currentIndexChanged, this,
          [this](int index) { Keep([&] { VoiceCB_Click(editor_, index); }); });
  connect(ui_->FormatCB, &QComboBox::currentIndexChanged, this,
          [this](int index) { Keep([&] { FormatCB_Change(editor_, index); }); });
}

void SettingsTab::ConnectCheckBoxes() {
  connect(ui_->IncludeWeightValuesCheck, &QCheckBox::toggled, this, [this](bool checked) {
    Keep([&] { IncludeWeightValuesCheck_Click(editor_, TickOf(checked)); });
  });
  connect(ui_->AutoLoadPLaylistCheckbox, &QCheckBox::toggled, this, [this](bool checked) {
    Keep([&] { AutoLoadPLaylistCheckbox_Click(editor_, TickOf(checked)); });
  });
  connect(ui_->PlayerPlayListCheck, &QCheckBox::toggled, this, [this](bool checked) {
    Keep([&] { PlayerPlayListCheck_Click(editor_, TickOf(checked)); });
  });
}

void SettingsTab::UpdateSettingsScreen() {
  const ProgramState& state = editor_.State();
  const ScreenUpdate updating = editor_.program.BeginScreenUpdate();
  ui_->RateSldr->setValue(state.Voice.Rate);
  ui_->VolumeSldr->setValue(state.Voice.Volume);
  ui_->VoiceCB->setCurrentIndex(state.Settings.VoiceIndex);
  ShowDefaultExerciseTime();
  ShowPaths();
  ui_->RandomMusicTextBox->setText(
      QString::fromStdString(std::to_string(state.RandomMusicFiles) + " songs found."));
  ui_->IncludeWeightValuesCheck->setChecked(state.Settings.IncludeWeightValues == kTrue);
  ui_->AutoLoadPLaylistCheckbox->setChecked(state.Settings.AutoLoadPlaylist == kTrue);
  ui_->PlayerPlayListCheck->setChecked(Get(state.Options, kPlayListForPlayer));
}

void SettingsTab::ShowPaths() {
  const SettingsRecord& settings = editor_.State().Settings;
  ui_->MusicPathTextBox->setText(QString::fromStdString(settings.MusicPath.Trimmed()));
  ui_->OutputPathTextBox->setText(QString::fromStdString(settings.OutputPath.Trimmed()));
}

void SettingsTab::ShowDefaultExerciseTime() {
  ui_->ExerciseTimeTextBox->setText(
      QString::fromStdString(StandardNumberText(editor_.State().Settings.DefaultExerciseTime)));
}

void SettingsTab::ShowVoices(const std::vector<std::string>& names) {
  const ScreenUpdate updating = editor_.program.BeginScreenUpdate();
  Fill(ui_->VoiceCB, names);
  ui_->VoiceCB->setPlaceholderText(names.empty() ? "No voices: install flite or espeak-ng."
                                                 : "Choose a voice.");
  ui_->VoiceCB->setCurrentIndex(editor_.State().Settings.VoiceIndex);
}

void SettingsTab::ShowAudioOutputs(const std::vector<std::string>& names) {
  Fill(ui_->AudioOutputCB, names);
  if (names.empty()) ui_->AudioOutputCB->addItem("No audio output object available");
  ui_->AudioOutputCB->setEnabled(!names.empty());
  ui_->AudioOutputCB->setCurrentIndex(0);
}

ChosenOutput SettingsTab::SelectedAudioOutput() const {
  const QComboBox& box = *ui_->AudioOutputCB;
  if (!box.isEnabledTo(this)) return {};
  return {.entry = box.currentIndex(), .name = box.currentText().toStdString()};
}

void SettingsTab::ShowFormats() {
  const ScreenUpdate updating = editor_.program.BeginScreenUpdate();
  ui_->FormatCB->clear();
  for (const SoundFormat& format : kSoundFormats) {
    ui_->FormatCB->addItem(
        QString::fromUtf8(format.name.data(), static_cast<int>(format.name.size())), format.code);
  }
  ui_->FormatCB->setCurrentIndex(editor_.State().Voice.Format);
}

}  // namespace repvolta
