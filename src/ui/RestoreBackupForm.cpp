#include "ui/RestoreBackupForm.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPushButton>
#include <QTableWidget>
#include <algorithm>
#include <exception>
#include <utility>

#include "ui/SizeOnScreen.h"
#include "ui/TouchScreen.h"

#include "ui_RestoreBackupForm.h"

namespace repvolta {
namespace {

enum Column { kFrom, kTo };

// In characters and lines of the window's font.
constexpr int kWidth = 96;
constexpr int kHeight = 30;
constexpr int kMostRows = 5;

constexpr int kRowMargin = 4;  // pixels around the text of a row

QString ToQt(const std::string& text) { return QString::fromStdString(text); }

/// A path as a person types it; one that is not absolute leads nowhere.
std::string TypedPath(const QTableWidget& table, int row, Column column) {
  QString path = table.item(row, column)->text().trimmed();
  while (path.size() > 1 && path.endsWith('/')) path.chop(1);
  return path.startsWith('/') ? path.toStdString() : std::string();
}

}  // namespace

RestoreBackupForm::RestoreBackupForm(const RestoreQuestion& question, QWidget* parent)
    : QDialog(parent), question_(question), ui_(std::make_unique<Ui::RestoreBackupForm>()) {
  ui_->setupUi(this);
  ui_->HeadingLabel->setText(ToQt(question_.heading));
  QFont bold = ui_->HeadingLabel->font();
  bold.setBold(true);
  ui_->HeadingLabel->setFont(bold);
  ShowExchanges();
  ShowPlan();
  connect(ui_->ExchangeTable, &QTableWidget::itemChanged, this, &RestoreBackupForm::ShowPlan);
  connect(ui_->RestoreButton, &QPushButton::clicked, this, &QDialog::accept);
  connect(ui_->CancelButton, &QPushButton::clicked, this, &QDialog::reject);
  ui_->ExchangeTable->installEventFilter(this);
  ui_->PlanList->setFocus();
  TakeSize();
}

RestoreBackupForm::~RestoreBackupForm() = default;

std::vector<PathExchange> RestoreBackupForm::Exchanges() const {
  std::vector<PathExchange> exchanges;
  const QTableWidget& table = *ui_->ExchangeTable;
  for (int row = 0; row < table.rowCount(); ++row) {
    PathExchange exchange{TypedPath(table, row, kFrom), TypedPath(table, row, kTo)};
    if (!exchange.from.empty() && !exchange.to.empty()) exchanges.push_back(std::move(exchange));
  }
  return exchanges;
}

void RestoreBackupForm::ShowExchanges() {
  QTableWidget* table = ui_->ExchangeTable;
  ui_->ExchangeFrame->setVisible(!question_.exchanges.empty());
  table->setRowCount(static_cast<int>(question_.exchanges.size()));
  int row = 0;
  for (const PathExchange& exchange : question_.exchanges) {
    table->setItem(row, kFrom, new QTableWidgetItem(ToQt(exchange.from)));
    table->setItem(row, kTo, new QTableWidgetItem(ToQt(exchange.to)));
    ++row;
  }
  table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  table->verticalHeader()->hide();
  table->setCurrentCell(0, kTo);
}

/// Only now are the fonts known, on which the height of the rows depends.
void RestoreBackupForm::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  layout()->activate();
  QTableWidget* table = ui_->ExchangeTable;
  QHeaderView* rows = table->verticalHeader();
  rows->setDefaultSectionSize(
      std::max({rows->defaultSectionSize(), table->fontMetrics().height() + kRowMargin,
                LeastRowHeight(*table)}));
  int height = table->horizontalHeader()->height() + 2 * table->frameWidth();
  for (int row = 0; row < std::min(table->rowCount(), kMostRows); ++row)
    height += table->rowHeight(row);
  table->setFixedHeight(height);
}

void RestoreBackupForm::ShowPlan() {
  ui_->PlanList->clear();
  try {
    const RestoreView view = question_.plan(Exchanges());
    for (const std::string& line : view.lines) ui_->PlanList->addItem(ToQt(line));
    ui_->RestoreButton->setEnabled(!view.changesNothing);
  } catch (const std::exception& error) {
    ui_->PlanList->addItem(ToQt(error.what()));
    ui_->RestoreButton->setEnabled(false);
  }
  ui_->PlanList->setCurrentRow(0);
}

void RestoreBackupForm::TakeSize() {
  const QSize wanted(kWidth * fontMetrics().averageCharWidth(),
                     kHeight * fontMetrics().lineSpacing());
  resize(SizeOnScreen(*this, wanted));
}

/// Enter on a folder begins to change it, in its editor it ends that; it never presses a button.
bool RestoreBackupForm::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
      QTableWidget* table = ui_->ExchangeTable;
      if (table->hasFocus()) table->editItem(table->currentItem());
      return true;
    }
  }
  return QDialog::eventFilter(watched, event);
}

}  // namespace repvolta
