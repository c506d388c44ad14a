#include "ui/VoiceAndMusicForm.h"

#include <QAccessible>
#include <QScreen>
#include <QSignalBlocker>
#include <algorithm>
#include <vector>

#include "ui/RowTable.h"
#include "ui/TextTable.h"
#include "ui/WheelGuard.h"

#include "ui_VoiceAndMusicForm.h"

namespace repvolta {
namespace {

// In characters and lines of the window's font.
constexpr int kWidth = 84;
constexpr int kHeight = 32;
constexpr int kMargin = 3;
constexpr int kFewestRows = 4;

constexpr int kNameColumn = 0;

QString ToQt(const std::string& text) { return QString::fromStdString(text); }

}  // namespace

VoiceAndMusicForm::VoiceAndMusicForm(VoiceServices& services, QWidget* parent)
    : QDialog(parent),
      services_(services),
      ui_(std::make_unique<Ui::VoiceAndMusicForm>()),
      table_(new TextTable(this)),
      work_(services, [this] { ShowAll(); }) {
  ui_->setupUi(this);
  Form_Load();
  ConnectControls();
  work_.Measure();
  ui_->LevelSlider->setFocus();
}

VoiceAndMusicForm::~VoiceAndMusicForm() = default;

void VoiceAndMusicForm::Form_Load() {
  level_ = work_.Chosen();
  ui_->LevelSlider->setValue(level_);
  ui_->RuleLabel->setForegroundRole(QPalette::PlaceholderText);
  ui_->SongsTable->SetFewestRows(kFewestRows);
  ui_->SongsTable->setModel(table_);
  QSizePolicy policy = ui_->MeasureBar->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  ui_->MeasureBar->setSizePolicy(policy);
  new WheelGuard(this);
  const int line = fontMetrics().lineSpacing();
  const QSize wanted(kWidth * fontMetrics().averageCharWidth(), kHeight * line);
  // The frame of the window needs room, too.
  resize(wanted.boundedTo(screen()->availableSize() - QSize(0, kMargin * line)));
}

void VoiceAndMusicForm::ConnectControls() {
  connect(ui_->MeasureButton, &QPushButton::clicked, this, &VoiceAndMusicForm::MeasureButton_Click);
  connect(ui_->LevelSlider, &QSlider::valueChanged, this, &VoiceAndMusicForm::LevelSlider_Change);
  connect(ui_->RecommendedButton, &QPushButton::clicked, this, [this] {
    if (const auto level = RecommendedLevel(work_.Progress().songs)) {
      ui_->LevelSlider->setValue(*level);
    }
  });
  connect(ui_->SongsTable, &RowTable::RowChosen, ui_->ListenButton, &QPushButton::click);
  connect(ui_->ListenButton, &QPushButton::clicked, this, &VoiceAndMusicForm::ListenButton_Click);
  connect(ui_->StopButton, &QPushButton::clicked, this, [this] { work_.StopListening(); });
  connect(ui_->UseButton, &QPushButton::clicked, this, &VoiceAndMusicForm::UseButton_Click);
  connect(ui_->CloseButton, &QPushButton::clicked, this, &QDialog::reject);
}

void VoiceAndMusicForm::done(int result) {
  work_.StopListening();
  work_.StopMeasuring();
  QDialog::done(result);
}

void VoiceAndMusicForm::MeasureButton_Click() {
  if (work_.Progress().isMeasuring) return work_.StopMeasuring();
  Attempt(services_, "The songs cannot be measured.", [this] { work_.Measure(); });
}

void VoiceAndMusicForm::LevelSlider_Change(int value) {
  level_ = NextLevel(level_, value);
  const QSignalBlocker quiet(ui_->LevelSlider);
  ui_->LevelSlider->setValue(level_);
  ShowLevel();
}

/// Without a selected song that can be heard, the one that stands for the louder ones.
void VoiceAndMusicForm::ListenButton_Click() {
  const std::vector<SongLoudness>& songs = work_.Progress().songs;
  const int row = ui_->SongsTable->SelectedRow();
  const bool isSong = row >= 0 && songs.at(static_cast<std::size_t>(row)).loudness;
  const auto song = isSong ? std::optional(static_cast<std::size_t>(row)) : TypicalSong(songs);
  Attempt(services_, "The voice cannot be heard.", [&] { work_.Listen(level_, song); });
}

void VoiceAndMusicForm::UseButton_Click() {
  Attempt(services_, "The level of the voice was not changed.", [this] { work_.Use(level_); });
}

void VoiceAndMusicForm::ShowAll() {
  ShowSongs();
  const SongProgress& progress = work_.Progress();
  if (!progress.isMeasuring) SelectTypicalSong();
  ui_->MeasureBar->setVisible(progress.isMeasuring);
  ui_->MeasureBar->setMaximum(static_cast<int>(progress.all));
  ui_->MeasureBar->setValue(static_cast<int>(progress.songs.size()));
  ui_->MeasureButton->setText(progress.isMeasuring ? "Stop &Measuring" : "&Measure Again");
  ui_->SummaryLabel->setText(ToQt(SongSummary(progress)));
  ui_->RecommendedButton->setEnabled(RecommendedLevel(progress.songs).has_value());
  ui_->StopButton->setEnabled(work_.IsListening());
  ui_->ChosenLabel->setText(ToQt("Now: " + LevelText(work_.Chosen())));
  ShowLevel();
  Tell(ToQt(work_.Notice()));
}

void VoiceAndMusicForm::ShowSongs() {
  const std::vector<SongLoudness>& songs = work_.Progress().songs;
  if (songs.size() == shownSongs_ && table_->columnCount() > 0) return;
  shownSongs_ = songs.size();
  std::vector<TextTable::Row> rows;
  rows.reserve(songs.size());
  for (std::size_t i = 0; const SongRow& row : SongRows(songs)) {
    rows.push_back(
        {.cells = {ToQt(row.name), ToQt(row.loudness)}, .description = ToQt(songs[i++].path)});
  }
  const int selected = ui_->SongsTable->SelectedRow();
  table_->Fill({"Song", "Loudness"}, rows);
  ui_->SongsTable->StretchColumns({kNameColumn});
  if (selected >= 0 && selected < static_cast<int>(rows.size())) {
    ui_->SongsTable->SelectRow(selected);
  }
}

/// Once all are measured: the song that the recommended level is for, unless another is selected.
void VoiceAndMusicForm::SelectTypicalSong() {
  const auto song = TypicalSong(work_.Progress().songs);
  if (song && ui_->SongsTable->SelectedRow() < 0) {
    ui_->SongsTable->SelectRow(static_cast<int>(*song));
  }
}

void VoiceAndMusicForm::ShowLevel() {
  const QString text = ToQt("The voice is to be at: " + LevelText(level_));
  ui_->LevelText->setText(text);
  ui_->LevelSlider->setAccessibleDescription(ToQt(LevelText(level_)));
}

void VoiceAndMusicForm::Tell(const QString& notice) {
  if (notice == ui_->NoticeLabel->text()) return;
  ui_->NoticeLabel->setText(notice);
  if (notice.isEmpty()) return;
  QAccessibleEvent said(ui_->NoticeLabel, QAccessible::Alert);
  QAccessible::updateAccessibility(&said);
}

void ShowVoiceAndMusic(QWidget* owner, VoiceServices& services) {
  VoiceAndMusicForm(services, owner).exec();
}

}  // namespace repvolta
