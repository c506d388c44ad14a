#include "ui/RestoreVersionForm.h"

#include <QAccessible>
#include <QPushButton>
#include <QScreen>
#include <QSignalBlocker>
#include <QTimer>
#include <algorithm>

#include "base/FileError.h"
#include "ui/RowTable.h"
#include "ui/TextTable.h"
#include "ui/WheelGuard.h"

#include "ui_RestoreVersionForm.h"

namespace repvolta {
namespace {

// In characters and lines of the window's font.
constexpr int kWidth = 110;
constexpr int kHeight = 36;
constexpr int kMargin = 3;
constexpr int kFewestVersions = 4;
constexpr int kFewestLines = 4;

QString ToQt(const std::string& text) { return QString::fromStdString(text); }

}  // namespace

RestoreVersionForm::RestoreVersionForm(EarlierVersions& versions, QWidget* parent)
    : QDialog(parent),
      versions_(versions),
      ui_(std::make_unique<Ui::RestoreVersionForm>()),
      rows_(new TextTable(this)) {
  ui_->setupUi(this);
  Form_Load();
  connect(ui_->WorkoutBox, &QComboBox::currentIndexChanged, this,
          &RestoreVersionForm::WorkoutBox_Select);
  connect(ui_->VersionsTable, &RowTable::RowSelected, this, &RestoreVersionForm::VersionRow_Select);
  connect(ui_->VersionsTable, &RowTable::RowChosen, this,
          [this] { ui_->RestoreButton->setFocus(); });
  connect(ui_->RestoreButton, &QPushButton::clicked, this,
          &RestoreVersionForm::RestoreButton_Click);
  connect(ui_->CloseButton, &QPushButton::clicked, this, &QDialog::reject);
  new WheelGuard(this);
  ListWorkouts();
  WorkoutBox_Select();
  ui_->VersionsTable->setFocus();
}

RestoreVersionForm::~RestoreVersionForm() = default;

void RestoreVersionForm::Form_Load() {
  ui_->VersionsTable->SetFewestRows(kFewestVersions);
  ui_->VersionsTable->setModel(rows_);
  const int line = fontMetrics().lineSpacing();
  ui_->DifferenceText->setMinimumHeight(kFewestLines * line);
  const QSize wanted(kWidth * fontMetrics().averageCharWidth(), kHeight * line);
  // The frame of the window needs room, too.
  resize(wanted.boundedTo(screen()->availableSize() - QSize(0, kMargin * line)));
}

std::size_t RestoreVersionForm::Workout() const {
  return static_cast<std::size_t>(std::max(0, ui_->WorkoutBox->currentIndex()));
}

/// The workout that was chosen stays so, if it is still there.
void RestoreVersionForm::ListWorkouts() {
  const QString chosen = ui_->WorkoutBox->currentText();
  const QSignalBlocker quiet(ui_->WorkoutBox);
  ui_->WorkoutBox->clear();
  for (const std::string& name : versions_.Workouts()) ui_->WorkoutBox->addItem(ToQt(name));
  ui_->WorkoutBox->setCurrentIndex(std::max(0, ui_->WorkoutBox->findText(chosen)));
}

void RestoreVersionForm::WorkoutBox_Select() {
  Tell(versions_.AreNone() ? QString() : ToQt(versions_.Remark(Workout())));
  ShowVersions(0);
}

void RestoreVersionForm::ShowVersions(int selected) {
  std::vector<TextTable::Row> rows;
  if (ui_->WorkoutBox->count() > 0) {
    for (const VersionRow& row : versions_.Rows(Workout())) {
      QStringList cells;
      for (const std::string& cell : row) cells.append(ToQt(cell));
      rows.push_back({.cells = cells, .description = {}});
    }
  }
  const int count = static_cast<int>(rows.size());
  rows_->Fill({"Kept on", "Why", "What is in it"}, rows);
  ui_->VersionsTable->StretchColumns({kVersionContent});
  ui_->VersionsTable->SelectRow(std::min(selected, count - 1));
  if (count == 0) VersionRow_Select(-1);
}

void RestoreVersionForm::VersionRow_Select(int row) {
  VersionView view{.heading = "What would change", .text = {}};
  if (row >= 0) view = versions_.View(Workout(), static_cast<std::size_t>(row));
  ui_->DifferenceLabel->setText("&" + ToQt(view.heading));
  ui_->DifferenceText->setAccessibleName(ToQt(view.heading));
  ui_->DifferenceText->setPlainText(ToQt(view.text));
  ui_->RestoreButton->setEnabled(view.canBeRestored);
  // Not while the table is still selecting the row.
  if (view.isGone) QTimer::singleShot(0, this, [this, why = ToQt(view.text)] { ListAgain(why); });
}

void RestoreVersionForm::RestoreButton_Click() {
  const int row = ui_->VersionsTable->SelectedRow();
  if (row < 0) return;
  chosen_ = versions_.Read(Workout(), static_cast<std::size_t>(row));
  if (chosen_) {
    accept();
  } else {
    ListAgain("This version can no longer be read.");
  }
}

/// Something is no longer as it was listed. The next row takes the place of one that is gone.
void RestoreVersionForm::ListAgain(const QString& why) {
  const int row = ui_->VersionsTable->SelectedRow();
  try {
    versions_.Refresh();
  } catch (const FileError& error) {
    ui_->RestoreButton->setEnabled(false);
    Tell(error.what());
    return;
  }
  ListWorkouts();
  Tell(why + " The list is new.");
  ShowVersions(std::max(0, row));
}

void RestoreVersionForm::Tell(const QString& notice) {
  ui_->NoticeLabel->setText(notice);
  ui_->NoticeLabel->setVisible(!notice.isEmpty());
  if (notice.isEmpty()) return;
  QAccessibleEvent said(ui_->NoticeLabel, QAccessible::Alert);
  QAccessible::updateAccessibility(&said);
}

}  // namespace repvolta
