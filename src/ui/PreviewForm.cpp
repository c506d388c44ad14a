#include "ui/PreviewForm.h"

#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <algorithm>

#include "ui/PreviewListening.h"
#include "ui/RowTable.h"
#include "ui/TextTable.h"

#include "ui_PreviewForm.h"

namespace repvolta {
namespace {

// In characters and lines of the window's font.
constexpr int kWidth = 110;
constexpr int kHeight = 44;
constexpr int kMargin = 3;
constexpr int kLinesOfDetails = 4;
constexpr int kLinesOfProblems = 9;

QString ToQt(const std::string& text) { return QString::fromStdString(text); }

template <class Texts>
QStringList CellsOf(const Texts& texts) {
  QStringList cells;
  for (const std::string& text : texts) cells.append(ToQt(text));
  return cells;
}

QString ButtonText(PreviewPlace::Kind kind) {
  switch (kind) {
    case PreviewPlace::Kind::kWorkout:
      return "Show Workout";
    case PreviewPlace::Kind::kExercise:
      return "Show Exercise";
    case PreviewPlace::Kind::kSet:
      return "Show Set";
    case PreviewPlace::Kind::kSong:
      return "Show Song";
    case PreviewPlace::Kind::kTargetTime:
      return "Show Time";
    case PreviewPlace::Kind::kRandomMusicList:
    case PreviewPlace::Kind::kOutputPath:
      return "Show Settings";
    case PreviewPlace::Kind::kGuide:
      return "Show Help";
  }
  return {};
}

}  // namespace

PreviewForm::PreviewForm(const Preview& preview, QWidget* parent)
    : QDialog(parent),
      preview_(preview),
      ui_(std::make_unique<Ui::PreviewForm>()),
      files_(new TextTable(this)),
      growth_(new TextTable(this)) {
  ui_->setupUi(this);
  Form_Load();
  connect(ui_->FilesTable, &RowTable::RowSelected, this, &PreviewForm::FileRow_Select);
  connect(ui_->FilesTable, &RowTable::RowChosen, this, [this](int row) {
    CloseWith({.after = AfterPreview::kShowPlace,
               .place = preview_.files[static_cast<std::size_t>(row)].place});
  });
  connect(ui_->UpdateButton, &QPushButton::clicked, this,
          [this] { CloseWith({.after = AfterPreview::kUpdate, .place = {}}); });
  connect(ui_->CloseButton, &QPushButton::clicked, this, &QDialog::reject);
  ui_->FilesTable->SelectRow(0);
  ui_->FilesTable->setFocus();
}

PreviewForm::~PreviewForm() = default;

void PreviewForm::Form_Load() {
  ui_->HeadlineLabel->setText(ToQt(preview_.headline));
  ui_->OutlookLabel->setText(ToQt(preview_.outlook));
  QFont bold = ui_->OutlookLabel->font();
  bold.setBold(true);
  ui_->OutlookLabel->setFont(bold);
  ui_->TotalsLabel->setText(ToQt(preview_.totals));
  setAccessibleDescription(
      ToQt(preview_.headline + "\n" + preview_.outlook + "\n" + preview_.totals));
  ShowProblems();
  ShowFiles();
  ShowGrowth();
  const int line = fontMetrics().lineSpacing();
  ui_->DetailsText->setFixedHeight(kLinesOfDetails * line);
  const QSize wanted(kWidth * fontMetrics().averageCharWidth(), kHeight * line);
  // The frame of the window needs room, too.
  resize(wanted.boundedTo(screen()->availableSize() - QSize(0, kMargin * line)));
}

void PreviewForm::ShowProblems() {
  ui_->ProblemsArea->setVisible(!preview_.problems.empty());
  int row = 0;
  for (const PreviewProblem& problem : preview_.problems) AddProblem(problem, row++);
}

void PreviewForm::AddProblem(const PreviewProblem& problem, int row) {
  const bool isError = problem.kind == LineKind::kError;
  const QString text = QString(isError ? "Error: " : "Warning: ") + ToQt(problem.text);
  auto* icon = new QLabel(ui_->ProblemsFrame);
  const int side = fontMetrics().height();
  icon->setPixmap(
      style()
          ->standardIcon(isError ? QStyle::SP_MessageBoxCritical : QStyle::SP_MessageBoxWarning)
          .pixmap(side, side));
  ui_->ProblemsGrid->addWidget(icon, row, 0);
  auto* label = new QLabel(ui_->ProblemsFrame);
  label->setTextFormat(Qt::PlainText);
  label->setText(text);
  label->setWordWrap(true);
  ui_->ProblemsGrid->addWidget(label, row, 1);
  auto* button = new QPushButton(ButtonText(problem.place.kind), ui_->ProblemsFrame);
  button->setObjectName(QString("PlaceButton_%1").arg(row));
  button->setAccessibleName(QString("%1, problem %2").arg(button->text()).arg(row + 1));
  button->setAccessibleDescription(text);
  button->setAutoDefault(false);
  connect(button, &QPushButton::clicked, this, [this, place = problem.place] {
    CloseWith({.after = AfterPreview::kShowPlace, .place = place});
  });
  ui_->ProblemsGrid->addWidget(button, row, 2);
}

void PreviewForm::ShowFiles() {
  std::vector<TextTable::Row> rows;
  rows.reserve(preview_.files.size());
  for (const PreviewFile& file : preview_.files) {
    rows.push_back({.cells = CellsOf(file.cells), .description = ToQt(file.details)});
  }
  files_->AlignRight({kPreviewTime, kPreviewSize});
  files_->Fill({"File", "What", "Time", "Size"}, rows);
  ui_->FilesTable->setModel(files_);
  ui_->FilesTable->StretchColumns({kPreviewName, kPreviewWhat});
}

void PreviewForm::ShowGrowth() {
  std::vector<TextTable::Row> rows;
  rows.reserve(preview_.growth.size());
  for (const PreviewGrowth& growth : preview_.growth) {
    rows.push_back({.cells = CellsOf(growth), .description = {}});
  }
  growth_->Fill({"Exercise", "Set", "Value", "Now", "After"}, rows);
  ui_->GrowthTable->setModel(growth_);
  ui_->GrowthTable->StretchColumns({kGrowthExercise, kGrowthAfter});
  ui_->GrowthTable->setVisible(!rows.empty());
  ui_->GrowthLabel->setVisible(!rows.empty());
  ui_->NoGrowthLabel->setVisible(rows.empty());
  ui_->GrowthTable->SelectRow(0);
}

/// Only now are the fonts and the width known, on which the height of the problems depends.
void PreviewForm::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  layout()->activate();
  const int width = ui_->ProblemsArea->viewport()->width();
  const int wanted =
      ui_->ProblemsGrid->totalHeightForWidth(width) + 2 * ui_->ProblemsArea->frameWidth();
  ui_->ProblemsArea->setFixedHeight(
      std::min(wanted, kLinesOfProblems * fontMetrics().lineSpacing()));
}

void PreviewForm::OfferListening(Listening& listening) {
  ui_->ListenFrame->setVisible(true);
  new PreviewListening(preview_, listening,
                       {.files = ui_->FilesTable,
                        .rows = files_,
                        .listen = ui_->ListenButton,
                        .stop = ui_->StopButton,
                        .next = ui_->NextButton,
                        .notice = ui_->NoticeLabel},
                       this);
}

void PreviewForm::FileRow_Select(int row) {
  ui_->DetailsText->setPlainText(
      row < 0 ? QString() : ToQt(preview_.files[static_cast<std::size_t>(row)].details));
}

void PreviewForm::CloseWith(const PreviewOutcome& outcome) {
  outcome_ = outcome;
  accept();
}

}  // namespace repvolta
