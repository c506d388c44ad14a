#include "ui/GrowthAheadForm.h"

#include <QHeaderView>
#include <QScreen>

#include "ui/GrowthRows.h"
#include "ui/WheelGuard.h"

#include "ui_GrowthAheadForm.h"

namespace repvolta {
namespace {

constexpr int kWeek = 7;
constexpr std::array kWeeks = {4, 12, 26};
constexpr int kUsualWeeks = 1;  // the index of 12

// In characters of the window's font.
constexpr int kWidth = 100;
constexpr int kHeight = 56;

}  // namespace

GrowthAheadForm::GrowthAheadForm(QWidget* owner)
    : QDialog(owner), ui_(std::make_unique<Ui::GrowthAheadForm>()), rows_(new GrowthRows(this)) {
  ui_->setupUi(this);
  weekdays_ = {ui_->MondayBox, ui_->TuesdayBox,  ui_->WednesdayBox, ui_->ThursdayBox,
               ui_->FridayBox, ui_->SaturdayBox, ui_->SundayBox};
  ui_->RuleLabel->setForegroundRole(QPalette::PlaceholderText);
  ui_->GrowthTable->setModel(rows_);
  ui_->GrowthTable->verticalHeader()->hide();
  ui_->GrowthTable->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  ui_->GrowthTable->verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
  for (const int weeks : kWeeks) ui_->WeeksBox->addItem(QString("%1 weeks").arg(weeks));
  ui_->WeeksBox->setCurrentIndex(kUsualWeeks);
  ConnectUpdateDays();
  connect(ui_->CloseButton, &QPushButton::clicked, this, &QDialog::hide);
  new WheelGuard(this);
  resize(QSize(kWidth * fontMetrics().averageCharWidth(), kHeight * fontMetrics().lineSpacing())
             .boundedTo(screen()->availableSize()));
}

GrowthAheadForm::~GrowthAheadForm() = default;

void GrowthAheadForm::ConnectUpdateDays() {
  connect(ui_->DailyButton, &QRadioButton::clicked, this, [this] { choose_(kDaily); });
  connect(ui_->WeekdaysButton, &QRadioButton::clicked, this,
          &GrowthAheadForm::WeekdaysButton_Click);
  for (QCheckBox* box : weekdays_) {
    connect(box, &QCheckBox::clicked, this, &GrowthAheadForm::TakeTickedDays);
  }
}

void GrowthAheadForm::OnWeeks(std::function<void()> choose) {
  connect(ui_->WeeksBox, &QComboBox::currentIndexChanged, this, std::move(choose));
}

int GrowthAheadForm::DaysAhead() const {
  return kWeek * kWeeks.at(static_cast<std::size_t>(ui_->WeeksBox->currentIndex()));
}

void GrowthAheadForm::ShowUpdateDays(const UpdateDays& days) {
  const bool isDaily = days == kDaily;
  ui_->DailyButton->setChecked(isDaily);
  ui_->WeekdaysButton->setChecked(!isDaily);
  ui_->WeekdaysFrame->setEnabled(!isDaily);
  if (isDaily) return;  // the ticks stay for the next choice
  for (std::size_t i = 0; i < weekdays_.size(); ++i) weekdays_[i]->setChecked(days[i]);
}

void GrowthAheadForm::Show(const GrowthAheadView& view) {
  QStringList advice;
  for (const std::string& line : view.advice) advice.append(QString::fromStdString(line));
  ui_->GrowthHeading->setText(QString::fromStdString(view.exercise));
  ui_->AdviceLabel->setText(advice.join('\n'));
  ui_->AdviceLabel->setVisible(!advice.isEmpty());
  const bool isEmpty = view.rows.empty();
  ui_->NothingLabel->setVisible(isEmpty);
  ui_->GrowthPicture->setVisible(!isEmpty);
  ui_->GrowthPicture->Show(view);
  ui_->GrowthTable->setVisible(!isEmpty);
  rows_->Show(view.rows);
}

void GrowthAheadForm::WeekdaysButton_Click() {
  if (TickedDays().none()) ui_->MondayBox->setChecked(true);
  TakeTickedDays();
}

/// Somebody who unticks the last day goes back to daily updates.
void GrowthAheadForm::TakeTickedDays() {
  const UpdateDays days = TickedDays();
  choose_(days.none() ? kDaily : days);
}

UpdateDays GrowthAheadForm::TickedDays() const {
  UpdateDays days;
  for (std::size_t i = 0; i < weekdays_.size(); ++i) days[i] = weekdays_[i]->isChecked();
  return days;
}

}  // namespace repvolta
