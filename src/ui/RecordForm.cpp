#include "ui/RecordForm.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QKeyEvent>
#include <QScreen>
#include <QSignalBlocker>

#include "ui/LargeLabel.h"
#include "ui/LevelBar.h"
#include "ui/SizeOnScreen.h"
#include "ui/WheelGuard.h"

#include "ui_RecordForm.h"

namespace repvolta {
namespace {

// In characters and lines of the window's font.
constexpr int kWidth = 96;
constexpr int kHeight = 32;
constexpr int kLinesOfVerdict = 3;

constexpr int kLookInterval = 1000;  // milliseconds

QString ToQt(const std::string& text) { return QString::fromStdString(text); }

QStringList ToQt(const std::vector<std::string>& texts) {
  QStringList list;
  for (const std::string& text : texts) list.append(ToQt(text));
  return list;
}

/// Shows entries without telling that one is chosen.
void Fill(QComboBox& box, const std::vector<std::string>& entries, int chosen) {
  const QSignalBlocker quiet(box);
  box.clear();
  box.addItems(ToQt(entries));
  box.setCurrentIndex(chosen);
}

void Grow(QWidget& widget, double factor) {
  QFont font = widget.font();
  font.setPointSizeF(font.pointSizeF() * factor);
  widget.setFont(font);
}

bool IsEnter(const QKeyEvent& key) {
  return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

}  // namespace

RecordForm::RecordForm(RecordWords& recording, QWidget* owner)
    : QDialog(owner), recording_(recording), ui_(std::make_unique<Ui::RecordForm>()) {
  ui_->setupUi(this);
  Form_Load();
  ConnectButtons();
  ConnectChoices();
  ShowChoices();
  new WheelGuard(this);
  recording_.Session().OnChange([this] { ShowSession(); });
  recording_.Session().OnLevel([this](double level) { ui_->LevelBar->ShowLevel(level); });
  ShowSession();
  GiveFocus();
}

RecordForm::~RecordForm() {
  recording_.Session().OnChange({});
  recording_.Session().OnLevel({});
  recording_.Session().Stop();
}

void RecordForm::Form_Load() {
  Grow(*ui_->PhaseLabel, 1.6);
  Grow(*ui_->VerdictLabel, 1.2);
  // Nothing moves when they change.
  ui_->PhaseLabel->setMinimumHeight(ui_->PhaseLabel->fontMetrics().lineSpacing());
  ui_->VerdictLabel->setMinimumHeight(kLinesOfVerdict *
                                      ui_->VerdictLabel->fontMetrics().lineSpacing());
  resize(SizeOnScreen(*this, QSize(kWidth * fontMetrics().averageCharWidth(),
                                   kHeight * fontMetrics().lineSpacing())));
}

/// A click leaves the focus where it is, so that the space bar goes on recording.
void RecordForm::ConnectButtons() {
  RecordingSession& session = recording_.Session();
  const auto on = [this](QPushButton* button, std::function<void()> act) {
    button->setFocusPolicy(Qt::TabFocus);
    button->installEventFilter(this);
    connect(button, &QPushButton::clicked, this, std::move(act));
  };
  on(ui_->RecordButton, [&session] { session.StartOrStop(); });
  on(ui_->KeepButton, [&session] { session.Keep(); });
  on(ui_->ListenButton, [&session] { session.Listen(); });
  on(ui_->NextButton, [&session] { session.Next(); });
  on(ui_->BackButton, [&session] { session.Back(); });
  on(ui_->CloseButton, [this] { reject(); });
}

void RecordForm::ConnectChoices() {
  connect(ui_->WhatBox, &QComboBox::activated, this, [this](int entry) {
    recording_.ChooseWhat(entry);
    ShowChoices();
  });
  connect(ui_->LanguageBox, &QComboBox::activated, this, [this](int entry) {
    recording_.ChooseLanguage(entry);
    ShowChoices();
  });
  connect(ui_->MicrophoneBox, &QComboBox::activated, this,
          [this](int entry) { recording_.ChooseMicrophone(shownMicrophones_, entry); });
  connect(ui_->LeaveOutCheck, &QCheckBox::clicked, this,
          [this](bool isTicked) { recording_.LeaveOutOwn(isTicked); });
  connect(ui_->ByItselfCheck, &QCheckBox::clicked, this,
          [this](bool isTicked) { recording_.StartByItself(isTicked); });
  connect(&microphones_, &QTimer::timeout, this, &RecordForm::ShowMicrophones);
  microphones_.start(kLookInterval);
}

void RecordForm::ShowChoices() {
  Fill(*ui_->WhatBox, recording_.WhatTexts(), recording_.What());
  Fill(*ui_->LanguageBox, recording_.LanguageNames(), recording_.Language());
  ui_->LeaveOutCheck->setChecked(recording_.LeavesOutOwn());
  ui_->ByItselfCheck->setChecked(recording_.StartsByItself());
  ui_->NoticeLabel->setVisible(!recording_.Notice().empty());
  Tell(*ui_->NoticeLabel, recording_.Notice());
  ShowMicrophones();
}

/// The list stays alone while somebody chooses from it.
void RecordForm::ShowMicrophones() {
  if (ui_->MicrophoneBox->view()->isVisible()) return;
  const std::vector<std::string> names = recording_.Microphones();
  recording_.Follow(names);
  const int chosen = recording_.ChosenMicrophone(names);
  if (names == shownMicrophones_ && ui_->MicrophoneBox->currentIndex() == chosen) return;
  shownMicrophones_ = names;
  Fill(*ui_->MicrophoneBox, names, chosen);
}

void RecordForm::ShowSession() {
  const RecordView view = recording_.Session().View();
  ui_->ProgressLabel->setText(ToQt(view.progress));
  ui_->WordLabel->ShowText(ToQt(view.word));
  Tell(*ui_->PhaseLabel, view.instruction);
  Tell(*ui_->VerdictLabel, view.verdict);
  if (!view.isListening) ui_->LevelBar->ShowNothing();
  ShowButtons(view);
  SayToScreenReader(view);
}

void RecordForm::ShowButtons(const RecordView& view) {
  const QWidget* focused = focusWidget();
  const bool couldRecord = ui_->RecordButton->isEnabled();
  ui_->RecordButton->setText(ToQt(view.recordCaption));
  ui_->RecordButton->setEnabled(view.canRecord);
  ui_->KeepButton->setEnabled(view.canKeep);
  ui_->ListenButton->setEnabled(view.canListen);
  ui_->NextButton->setEnabled(view.canGoOn);
  ui_->BackButton->setEnabled(view.canGoBack);
  ui_->KeepButton->setDefault(view.enter == RecordView::Enter::kKeep);
  ui_->RecordButton->setDefault(view.enter == RecordView::Enter::kRecord);
  const bool canRecordAgain = view.canRecord && !couldRecord && focused == ui_->CloseButton;
  if (canRecordAgain || (focused != nullptr && !focused->isEnabled())) GiveFocus();
}

void RecordForm::GiveFocus() {
  QPushButton* button = ui_->RecordButton->isEnabled() ? ui_->RecordButton : ui_->CloseButton;
  button->setFocus();
}

void RecordForm::Tell(QLabel& label, const std::string& text) {
  if (label.text() == ToQt(text)) return;
  label.setText(ToQt(text));
  if (text.empty()) return;
  QAccessibleEvent said(&label, QAccessible::Alert);
  QAccessible::updateAccessibility(&said);
}

/// Screen readers say a change of what they are on.
void RecordForm::SayToScreenReader(const RecordView& view) {
  ui_->RecordButton->setAccessibleDescription(ToQt(view.spoken));
  ui_->CloseButton->setAccessibleDescription(view.canRecord ? QString() : ToQt(view.spoken));
}

/// A default button would also take an Enter that is held down.
bool RecordForm::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
  auto* key = static_cast<QKeyEvent*>(event);
  if (!IsEnter(*key)) return false;
  keyPressEvent(key);
  return true;
}

/// Enter does what fits the moment, wherever the focus is.
void RecordForm::keyPressEvent(QKeyEvent* event) {
  if (!IsEnter(*event)) return QDialog::keyPressEvent(event);
  if (event->isAutoRepeat()) return;
  switch (recording_.Session().View().enter) {
    case RecordView::Enter::kKeep:
      return recording_.Session().Keep();
    case RecordView::Enter::kRecord:
      return recording_.Session().StartOrStop();
    case RecordView::Enter::kNothing:
      break;
  }
}

void ShowRecordWords(QWidget* owner, VoiceServices& services, const std::string& clip) {
  RecordWords recording(services, clip);
  RecordForm(recording, owner).exec();
}

}  // namespace repvolta
