#include "ui/VoicesForm.h"

#include <QAccessible>
#include <QPointer>
#include <QPushButton>
#include <algorithm>

#include "editing/TakeInVoice.h"
#include "editing/Voices.h"
#include "editing/WriteOutVoice.h"
#include "ui/RowTable.h"
#include "ui/SizeOnScreen.h"
#include "ui/TextTable.h"

#include "ui_VoicesForm.h"

namespace repvolta {
namespace {

// In characters and lines of the window's font.
constexpr int kWidth = 88;
constexpr int kHeight = 28;
constexpr int kFewestVoices = 4;
constexpr int kFewestLines = 4;

constexpr int kWordsColumn = 2;
constexpr int kNamesColumn = 3;

QString ToQt(const std::string& text) { return QString::fromStdString(text); }

QString AsParagraphs(const std::vector<std::string>& lines) {
  QStringList paragraphs;
  for (const std::string& line : lines) paragraphs.append(ToQt(line));
  return paragraphs.join('\n');
}

}  // namespace

VoicesForm::VoicesForm(VoiceServices& services, QWidget* parent)
    : QDialog(parent),
      services_(services),
      ui_(std::make_unique<Ui::VoicesForm>()),
      table_(new TextTable(this)) {
  ui_->setupUi(this);
  Form_Load();
  ConnectButtons();
  Show(VoicesOf(services_).inUse);
  ui_->VoicesTable->setFocus();
}

VoicesForm::~VoicesForm() = default;

void VoicesForm::Form_Load() {
  table_->AlignRight({kWordsColumn, kNamesColumn});
  ui_->VoicesTable->SetFewestRows(kFewestVoices);
  ui_->VoicesTable->setModel(table_);
  const int line = fontMetrics().lineSpacing();
  ui_->AboutText->setMinimumHeight(kFewestLines * line);
  resize(SizeOnScreen(*this, {kWidth * fontMetrics().averageCharWidth(), kHeight * line}));
}

void VoicesForm::ConnectButtons() {
  connect(ui_->VoicesTable, &RowTable::RowSelected, this, &VoicesForm::VoiceRow_Select);
  connect(ui_->VoicesTable, &RowTable::RowChosen, this, [this] { ui_->UseButton->setFocus(); });
  connect(ui_->UseButton, &QPushButton::clicked, this, [this] {
    Do("The voice in use has not changed.", [this] {
      const std::string voice = Selected().voice;
      if (UseVoice(services_, voice)) Show(voice);
    });
  });
  connect(ui_->ListenButton, &QPushButton::clicked, this, &VoicesForm::ListenButton_Click);
  connect(ui_->CheckButton, &QPushButton::clicked, this, &VoicesForm::CheckButton_Click);
  connect(ui_->TakeInFolderButton, &QPushButton::clicked, this,
          [this] { TakeIn(TakeInVoiceFolder); });
  connect(ui_->TakeInZipButton, &QPushButton::clicked, this,
          [this] { TakeIn(TakeInVoiceArchive); });
  connect(ui_->WriteOutButton, &QPushButton::clicked, this, [this] {
    Do("Nothing was written.", [this] { WriteOutVoice(services_, Selected().voice); });
  });
  connect(ui_->RenameButton, &QPushButton::clicked, this, [this] {
    Do("The voice has its old name.",
       [this] { Show(RenameVoiceAsked(services_, Selected().voice)); });
  });
  connect(ui_->RemoveButton, &QPushButton::clicked, this, [this] {
    Do("The voice was not removed.", [this] {
      if (RemoveVoiceAsked(services_, Selected().voice)) Show("");
    });
  });
  connect(ui_->CloseButton, &QPushButton::clicked, this, &QDialog::reject);
}

const VoiceRow& VoicesForm::Selected() const {
  return rows_.at(static_cast<std::size_t>(std::max(0, ui_->VoicesTable->SelectedRow())));
}

/// The voice is selected if it is there, else the program's.
void VoicesForm::Show(const std::string& selected) {
  rows_ = ListVoiceRows(VoicesOf(services_));
  std::vector<TextTable::Row> lines;
  int row = 0;
  for (const VoiceRow& voice : rows_) {
    if (voice.voice == selected) row = static_cast<int>(lines.size());
    QStringList cells;
    for (const std::string& cell : CellsOf(voice)) cells.append(ToQt(cell));
    lines.push_back({.cells = cells, .description = {}});
  }
  table_->Fill({"Voice", "In use", "Words", "Names"}, lines);
  ui_->VoicesTable->StretchColumns({0});
  ui_->VoicesTable->SelectRow(row);
  VoiceRow_Select(row);
}

void VoicesForm::VoiceRow_Select(int row) {
  if (row < 0 || row >= static_cast<int>(rows_.size())) return;
  const VoiceRow& voice = rows_[static_cast<std::size_t>(row)];
  const bool isPrograms = voice.voice.empty();
  ui_->AboutText->setPlainText(AsParagraphs(AboutVoice(voice)));
  const bool hasClips = voice.words + voice.names > 0;
  ui_->UseButton->setEnabled(!voice.isInUse && hasClips);
  ui_->ListenButton->setEnabled(hasClips || isHeard_);
  ui_->CheckButton->setEnabled(hasClips);
  ui_->WriteOutButton->setEnabled(hasClips);
  ui_->RenameButton->setEnabled(!isPrograms && !voice.isInUse);
  ui_->RemoveButton->setEnabled(!isPrograms && !voice.isInUse);
}

void VoicesForm::Do(const std::string& failure, const std::function<void()>& step) {
  Silence();
  Attempt(services_, failure, step);
}

/// The button ends what it began.
void VoicesForm::ListenButton_Click() {
  if (isHeard_) {
    Silence();
    return;
  }
  const QPointer<VoicesForm> form(this);
  Do("The voice cannot be heard.", [this, form] {
    ListenToVoice(services_, Selected().voice, [form](const std::string& failure) {
      if (form.isNull()) return;
      form->Silence();
      if (!failure.empty()) form->services_.editor.dialogs.ShowMessage(failure);
    });
    isHeard_ = true;
    ui_->ListenButton->setText(tr("Stop &Listening"));
  });
}

void VoicesForm::Silence() {
  if (!isHeard_) return;
  services_.player.Stop();
  isHeard_ = false;
  ui_->ListenButton->setText(tr("&Listen"));
}

void VoicesForm::CheckButton_Click() {
  Do("The voice could not be checked.", [this] {
    const std::vector<std::string> lines = CheckOfVoice(services_, Selected().voice);
    if (lines.empty()) return;
    ui_->AboutText->setPlainText(AsParagraphs(lines));
    QAccessibleEvent said(ui_->AboutText, QAccessible::Alert);
    QAccessible::updateAccessibility(&said);
  });
}

void VoicesForm::TakeIn(std::string (*takeIn)(const VoiceServices& services)) {
  Do("The voice was not taken in.", [this, takeIn] {
    const std::string voice = takeIn(services_);
    if (!voice.empty()) Show(voice);
  });
}

void VoicesForm::done(int result) {
  Silence();
  QDialog::done(result);
}

void ShowVoices(QWidget* owner, VoiceServices& services) {
  VoicesForm form(services, owner);
  form.exec();
}

}  // namespace repvolta
