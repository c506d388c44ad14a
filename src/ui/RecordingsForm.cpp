#include "ui/RecordingsForm.h"

#include <QAccessible>
#include <QHeaderView>
#include <QPushButton>
#include <QScreen>
#include <QSignalBlocker>
#include <algorithm>
#include <chrono>
#include <utility>

#include "editing/ProgramVoiceCommand.h"
#include "editing/VoiceTexts.h"
#include "ui/Keys.h"
#include "ui/RecordForm.h"
#include "ui/RowTable.h"
#include "ui/SayDifferentlyForm.h"
#include "ui/TextTable.h"
#include "ui/WheelGuard.h"
#include "voices/NamesInUse.h"

#include "ui_RecordingsForm.h"

namespace repvolta {
namespace {

// In characters and lines of the window's font.
constexpr int kWidth = 120;
constexpr int kHeight = 36;
constexpr int kMargin = 3;
constexpr int kFewestRows = 6;
constexpr int kNarrowest = 7;  // a column

/// The window answers at once in between.
constexpr std::chrono::milliseconds kReadAtOnce{20};

constexpr int kFirstColumnOfSorting = 1;  // in the box; before it stands "Missing first"

QString ToQt(const std::string& text) { return QString::fromStdString(text); }

QStringList ToQt(const RecordingCells& cells) {
  QStringList texts;
  for (const std::string& cell : cells) texts.append(ToQt(cell));
  return texts;
}

}  // namespace

RecordingsForm::RecordingsForm(VoiceServices& services, QWidget* parent)
    : QDialog(parent),
      services_(services),
      ui_(std::make_unique<Ui::RecordingsForm>()),
      table_(new TextTable(this)),
      playback_(services, [this] { ShowHeard(); }) {
  ui_->setupUi(this);
  Form_Load();
  ConnectControls();
  ReadAgain();
  ui_->RecordingsTable->SelectRow(0);
  ui_->RecordingsTable->setFocus();
}

RecordingsForm::~RecordingsForm() = default;

void RecordingsForm::Form_Load() {
  for (const char* text :
       {"All", "Missing", "Your own", "Computer voice", "Program's voice", "With a fault"}) {
    ui_->ShowBox->addItem(text);
  }
  ui_->SortBox->addItem("Missing first");
  for (const std::string& heading : RecordingHeadings()) ui_->SortBox->addItem(ToQt(heading));
  table_->AlignRight({kRecordingLength, kRecordingLoudness});
  ui_->RecordingsTable->SetFewestRows(kFewestRows);
  ui_->RecordingsTable->setModel(table_);
  ui_->RecordingsTable->setTextElideMode(Qt::ElideRight);
  ui_->RecordingsTable->horizontalHeader()->setSectionsClickable(true);
  ui_->RecordingsTable->horizontalHeader()->setMinimumSectionSize(kNarrowest *
                                                                  fontMetrics().averageCharWidth());
  AddKey(ui_->RecordingsTable, Qt::Key_Space, ui_->ListenButton);
  new WheelGuard(this);
  const int line = fontMetrics().lineSpacing();
  const QSize wanted(kWidth * fontMetrics().averageCharWidth(), kHeight * line);
  // The frame of the window needs room, too.
  resize(wanted.boundedTo(screen()->availableSize() - QSize(0, kMargin * line)));
}

void RecordingsForm::ConnectControls() {
  connect(&timer_, &QTimer::timeout, this, &RecordingsForm::ReadSome);
  connect(ui_->ShowBox, &QComboBox::currentIndexChanged, this, [this](int index) {
    view_.choice = static_cast<RecordingsChoice>(index);
    ShowRows();
  });
  connect(ui_->FilterText, &QLineEdit::textChanged, this, [this](const QString& text) {
    view_.filter = text.toStdString();
    ShowRows();
  });
  connect(ui_->SortBox, &QComboBox::currentIndexChanged, this, &RecordingsForm::SortBox_Select);
  connect(ui_->RecordingsTable->horizontalHeader(), &QHeaderView::sectionClicked, this,
          &RecordingsForm::Header_Click);
  connect(ui_->RecordingsTable, &RowTable::RowSelected, this, &RecordingsForm::ShowRow);
  connect(ui_->RecordingsTable, &RowTable::RowChosen, ui_->ListenButton, &QPushButton::click);
  connect(ui_->ListenButton, &QPushButton::clicked, this, &RecordingsForm::Listen);
  connect(ui_->StopButton, &QPushButton::clicked, this, [this] { playback_.Stop(); });
  connect(ui_->RecordButton, &QPushButton::clicked, this, [this] {
    Change("Nothing could be recorded.",
           [this](const std::string& clip) { ShowRecordWords(this, services_, clip); });
  });
  connect(ui_->SayButton, &QPushButton::clicked, this, [this] {
    Change("The name cannot be said differently.",
           [this](const std::string& clip) { ShowSayDifferently(this, services_, clip); });
  });
  connect(ui_->BackButton, &QPushButton::clicked, this, [this] {
    Change("The recording is as it was.",
           [this](const std::string& clip) { BackToProgramVoice(services_, {clip}); });
  });
  connect(ui_->SentenceText, &QLineEdit::returnPressed, this, &RecordingsForm::PlaySentence);
  connect(ui_->PlayButton, &QPushButton::clicked, this, &RecordingsForm::PlaySentence);
  connect(ui_->CloseButton, &QPushButton::clicked, this, &QDialog::reject);
}

/// What was known stays in sight until all is read anew.
void RecordingsForm::ReadAgain() {
  MakeProgramDirectoryCurrent(services_.editor.State());
  reading_.emplace(ExerciseNamesInUse());
  notice_ = NoticeOfNotes(reading_->Fault());
  if (rows_.empty()) rows_ = reading_->Rows();
  ShowRows();
  ShowProgress();
  timer_.start();
}

void RecordingsForm::ReadSome() {
  const auto end = std::chrono::steady_clock::now() + kReadAtOnce;
  const bool isRead = Attempt(services_, "The recordings cannot be read.", [&] {
    MakeProgramDirectoryCurrent(services_.editor.State());
    while (std::chrono::steady_clock::now() < end) {
      if (reading_->ReadNext()) continue;
      rows_ = reading_->Rows();
      reading_.reset();
      return;
    }
  });
  if (!isRead) reading_.reset();
  ShowProgress();
  if (reading_) return;
  timer_.stop();
  ShowRows();
}

void RecordingsForm::ShowProgress() {
  ui_->ReadingBar->setVisible(reading_.has_value());
  ui_->SummaryLabel->setText(reading_ ? "The recordings are being measured ..."
                                      : ToQt(RecordingsSummary(rows_) + " " + notice_).trimmed());
  if (!reading_) return;
  ui_->ReadingBar->setMaximum(static_cast<int>(reading_->Rows().size()));
  ui_->ReadingBar->setValue(static_cast<int>(reading_->AreRead()));
}

/// The selected clip stays so while it is shown.
void RecordingsForm::ShowRows() {
  const ClipRow* selected = Selected();
  const std::string file = selected == nullptr ? "" : selected->file;
  shown_ = ShownRecordings(rows_, view_);
  std::vector<TextTable::Row> rows;
  rows.reserve(shown_.size());
  for (const std::size_t i : shown_) {
    rows.push_back({.cells = ToQt(CellsOf(rows_[i])), .description = ToQt(rows_[i].file)});
  }
  table_->Fill(ToQt(RecordingHeadings()), rows);
  ui_->RecordingsTable->StretchColumns({kRecordingFault});
  Select(file);
  ShowHeard();
}

void RecordingsForm::Select(const std::string& file) {
  const auto found =
      std::ranges::find_if(shown_, [&](std::size_t i) { return rows_[i].file == file; });
  const auto row = found == shown_.end() ? 0 : static_cast<int>(found - shown_.begin());
  ui_->RecordingsTable->SelectRow(row);
  ShowRow(ui_->RecordingsTable->SelectedRow());
}

const ClipRow* RecordingsForm::Selected() const {
  const int row = ui_->RecordingsTable->SelectedRow();
  if (row < 0 || std::cmp_greater_equal(row, shown_.size())) return nullptr;
  return &rows_[shown_[static_cast<std::size_t>(row)]];
}

void RecordingsForm::ShowRow(int /*row*/) {
  const ClipRow* selected = Selected();
  const bool isSelected = selected != nullptr;
  const bool isProgrammed = isSelected && IsUnderstood(*selected);
  ui_->ListenButton->setEnabled(isSelected && !selected->isMissing);
  ui_->RecordButton->setEnabled(isSelected);
  ui_->SayButton->setEnabled(isSelected);
  ui_->BackButton->setEnabled(isSelected && !isProgrammed);
}

/// The clips are listed anew afterwards; in between nothing is read, since they may be half
/// changed.
void RecordingsForm::Change(const std::string& failure,
                            const std::function<void(const std::string& clip)>& change) {
  const ClipRow* selected = Selected();
  if (selected == nullptr) return;
  playback_.Stop();
  timer_.stop();
  const std::string clip = selected->file;
  Attempt(services_, failure, [&] { change(clip); });
  const bool isListed =
      Attempt(services_, "The recordings cannot be listed.", [this] { ReadAgain(); });
  if (isListed) return;
  reading_.reset();
  ShowProgress();
}

/// A second click turns the order round.
void RecordingsForm::Header_Click(int column) {
  const bool isSame = view_.column == static_cast<RecordingColumn>(column) &&
                      view_.order == RecordingsView::Order::kUp;
  view_.column = static_cast<RecordingColumn>(column);
  view_.order = isSame ? RecordingsView::Order::kDown : RecordingsView::Order::kUp;
  const QSignalBlocker quiet(ui_->SortBox);
  ui_->SortBox->setCurrentIndex(column + kFirstColumnOfSorting);
  ui_->RecordingsTable->horizontalHeader()->setSortIndicator(
      column, isSame ? Qt::DescendingOrder : Qt::AscendingOrder);
  ui_->RecordingsTable->horizontalHeader()->setSortIndicatorShown(true);
  ShowRows();
}

void RecordingsForm::SortBox_Select() {
  const int index = ui_->SortBox->currentIndex();
  if (index >= kFirstColumnOfSorting) {
    view_.order = RecordingsView::Order::kDown;  // so that it becomes the other
    Header_Click(index - kFirstColumnOfSorting);
    return;
  }
  view_.order = RecordingsView::Order::kMissingFirst;
  ui_->RecordingsTable->horizontalHeader()->setSortIndicatorShown(false);
  ShowRows();
}

void RecordingsForm::Listen() {
  const ClipRow* selected = Selected();
  if (selected != nullptr) playback_.PlayClip(selected->file, selected->said);
}

void RecordingsForm::PlaySentence() {
  const SpokenSentence read =
      ClipsOfSentence(ui_->SentenceText->text().toStdString(), SayableClips(rows_));
  playback_.PlaySentence(read.clips, read.unsaid);
}

void RecordingsForm::ShowHeard() {
  const std::string& heard = playback_.Heard();
  const auto found = std::ranges::find_if(
      shown_, [&](std::size_t i) { return !heard.empty() && rows_[i].file == heard; });
  table_->MarkRow(found == shown_.end() ? -1 : static_cast<int>(found - shown_.begin()),
                  "heard now");
  ui_->StopButton->setEnabled(playback_.IsPlaying());
  Tell(ToQt(playback_.Notice()));
}

void RecordingsForm::Tell(const QString& notice) {
  if (notice == ui_->NoticeLabel->text()) return;
  ui_->NoticeLabel->setText(notice);
  if (notice.isEmpty()) return;
  QAccessibleEvent said(ui_->NoticeLabel, QAccessible::Alert);
  QAccessible::updateAccessibility(&said);
}

void RecordingsForm::done(int result) {
  timer_.stop();
  playback_.Stop();
  QDialog::done(result);
}

void ShowRecordings(QWidget* owner, VoiceServices& services) {
  RecordingsForm(services, owner).exec();
}

}  // namespace repvolta
