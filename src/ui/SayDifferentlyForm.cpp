#include "ui/SayDifferentlyForm.h"

#include <QAccessible>
#include <QPushButton>
#include <QScreen>
#include <algorithm>

#include "base/ProgramFiles.h"
#include "base/Text.h"
#include "ui/WheelGuard.h"

#include "ui_SayDifferentlyForm.h"

namespace repvolta {
namespace {

// In characters of the window's font.
constexpr int kWidth = 70;
constexpr int kNoticeLines = 2;
constexpr int kShownOfNames = 30;

constexpr const char* kFailure = "The name cannot be said differently.";

QString ToQt(const std::string& text) { return QString::fromStdString(text); }

}  // namespace

SayDifferentlyForm::SayDifferentlyForm(const VoiceServices& services, const std::string& clip,
                                       QWidget* parent)
    : QDialog(parent),
      services_(services),
      ui_(std::make_unique<Ui::SayDifferentlyForm>()),
      saying_(services, [this] { ShowState(); }) {
  MakeProgramDirectoryCurrent(services.editor.State());
  names_ = SayableNames(services.editor.State(), clip);
  ui_->setupUi(this);
  Form_Load();
  SelectClip(clip);
  ConnectControls();
  ShowLastWay();
  ShowState();
  ui_->SayText->setFocus();
}

SayDifferentlyForm::~SayDifferentlyForm() = default;

void SayDifferentlyForm::Form_Load() {
  for (const SayableName& name : names_) ui_->NameBox->addItem(ToQt(ShownOnOneLine(name.name)));
  for (const std::string& voice : saying_.Voices()) ui_->VoiceBox->addItem(ToQt(voice));
  for (QComboBox* box : {ui_->NameBox, ui_->VoiceBox}) {
    // The longest name may not make the window as wide.
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(kShownOfNames);
  }
  ui_->RateValue->setMinimumWidth(fontMetrics().horizontalAdvance("-10"));
  ui_->NoticeLabel->setMinimumHeight(kNoticeLines * fontMetrics().lineSpacing());
  new WheelGuard(this);
  const QSize wanted(kWidth * fontMetrics().averageCharWidth(), sizeHint().height());
  resize(wanted.boundedTo(screen()->availableSize()));
}

void SayDifferentlyForm::ConnectControls() {
  connect(ui_->NameBox, &QComboBox::currentIndexChanged, this, [this] {
    saying_.Stop();
    ShowLastWay();
  });
  connect(ui_->RateSlider, &QSlider::valueChanged, ui_->RateValue,
          [this](int rate) { ui_->RateValue->setNum(rate); });
  connect(ui_->SayText, &QLineEdit::returnPressed, this, &SayDifferentlyForm::Listen);
  connect(ui_->ListenButton, &QPushButton::clicked, this, &SayDifferentlyForm::Listen);
  connect(ui_->StopButton, &QPushButton::clicked, this, [this] { saying_.Stop(); });
  connect(ui_->KeepButton, &QPushButton::clicked, this, &SayDifferentlyForm::Keep);
  connect(ui_->CloseButton, &QPushButton::clicked, this, &QDialog::reject);
}

void SayDifferentlyForm::SelectClip(const std::string& clip) {
  const auto wanted = FoldCase(clip);
  const auto found = std::ranges::find_if(
      names_, [&](const SayableName& name) { return FoldCase(name.file) == wanted; });
  if (found != names_.end()) {
    ui_->NameBox->setCurrentIndex(static_cast<int>(found - names_.begin()));
  }
}

void SayDifferentlyForm::ShowLastWay() {
  const SayableName* name = Name();
  if (name == nullptr) return;
  Attempt(services_, kFailure, [&] {
    const WayToSay way = saying_.LastWayOf(*name);
    ui_->SayText->setText(ToQt(way.text));
    ui_->SayText->selectAll();
    ui_->VoiceBox->setCurrentIndex(way.voice);
    ui_->RateSlider->setValue(way.rate);
    ui_->RateValue->setNum(way.rate);
  });
}

void SayDifferentlyForm::ShowState() {
  const bool canSpeak = Name() != nullptr && !saying_.Voices().empty();
  ui_->ListenButton->setEnabled(canSpeak);
  ui_->KeepButton->setEnabled(canSpeak);
  ui_->StopButton->setEnabled(saying_.IsBusy());
  if (!canSpeak) {
    Tell(names_.empty() ? "There is no name of an exercise yet."
                        : "No speech engine is installed: install flite or espeak-ng.");
    return;
  }
  Tell(ToQt(saying_.Notice()));
}

void SayDifferentlyForm::Tell(const QString& notice) {
  if (notice == ui_->NoticeLabel->text()) return;
  ui_->NoticeLabel->setText(notice);
  if (notice.isEmpty()) return;
  QAccessibleEvent said(ui_->NoticeLabel, QAccessible::Alert);
  QAccessible::updateAccessibility(&said);
}

const SayableName* SayDifferentlyForm::Name() const {
  const int index = ui_->NameBox->currentIndex();
  return index < 0 ? nullptr : &names_[static_cast<std::size_t>(index)];
}

WayToSay SayDifferentlyForm::Way() const {
  return {.text = ui_->SayText->text().toStdString(),
          .voice = ui_->VoiceBox->currentIndex(),
          .rate = static_cast<std::int16_t>(ui_->RateSlider->value())};
}

void SayDifferentlyForm::Listen() {
  if (ui_->ListenButton->isEnabled()) saying_.Listen(*Name(), Way());
}

void SayDifferentlyForm::Keep() { saying_.Keep(*Name(), Way()); }

void SayDifferentlyForm::done(int result) {
  saying_.Stop();
  QDialog::done(result);
}

void ShowSayDifferently(QWidget* owner, VoiceServices& services, const std::string& clip) {
  SayDifferentlyForm(services, clip, owner).exec();
}

}  // namespace repvolta
