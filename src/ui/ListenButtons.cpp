#include "ui/ListenButtons.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QIcon>
#include <QTimer>
#include <algorithm>

#include "ui/ElidedLabel.h"
#include "ui/Keys.h"

namespace repvolta {
namespace {

constexpr const char* kListen = "Listen";
constexpr const char* kStop = "Stop";
constexpr const char* kFailure = "The instruction could not be played.";

/// Wide enough for each of the texts, so that nothing moves when it changes.
void KeepWide(QPushButton& button, std::initializer_list<const char*> texts) {
  int width = 0;
  for (const char* text : texts) {
    button.setText(text);
    width = std::max(width, button.sizeHint().width());
  }
  button.setMinimumWidth(width);
}

}  // namespace

ListenButtons::ListenButtons(Editor& editor, Handlers& handlers, QWidget* parent)
    : QWidget(parent),
      editor_(editor),
      handlers_(handlers),
      listen_(new QPushButton(this)),
      next_(new QPushButton("Listen to Next", this)),
      notice_(new ElidedLabel(this)) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(notice_, 1);
  row->addWidget(listen_);
  row->addWidget(next_);
  listen_->setObjectName("ListenButton");
  next_->setObjectName("ListenNextButton");
  notice_->setObjectName("ListenNotice");
  notice_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  notice_->setTextFormat(Qt::PlainText);
  notice_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  // The window takes its size before they are offered.
  QSizePolicy policy = sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  setSizePolicy(policy);
  listen_->setToolTip(
      "Hear the instruction of this exercise as an update of today would make it, "
      "or stop it (Ctrl+L).");
  next_->setToolTip("Hear the instruction of the next exercise (Ctrl+Shift+L).");
  KeepWide(*listen_, {kStop, kListen});
  connect(listen_, &QPushButton::clicked, this, &ListenButtons::Toggle);
  handlers_.OnClick(next_, kFailure, [this] { listening_->PlayNext(); });
  ShowOrHide();
}

void ListenButtons::ComeAfter(QWidget* control) {
  setTabOrder(control, listen_);
  setTabOrder(listen_, next_);
}

void ListenButtons::AddKeys(QWidget* window) {
  AddKey(window, Qt::CTRL | Qt::Key_L, listen_);
  AddKey(window, Qt::CTRL | Qt::SHIFT | Qt::Key_L, next_);
}

void ListenButtons::Use(Listening& listening) {
  listening_ = &listening;
  watch_ = listening.OnChange([this] { ShowState(); });
  ShowOrHide();
}

void ListenButtons::ShowForExercise(bool hasExercise) {
  hasExercise_ = hasExercise;
  ShowOrHide();
}

void ListenButtons::ShowOrHide() { setVisible(listening_ != nullptr && hasExercise_); }

/// Stopping is no command, so that it also works while one runs.
void ListenButtons::Toggle() {
  if (listening_->Heard()) {
    listening_->Stop();
  } else {
    handlers_.Run(kFailure, [this] { listening_->PlayCurrent(); });
  }
}

void ListenButtons::ShowState() {
  const QString notice = QString::fromStdString(listening_->Notice());
  const bool isHeard = listening_->Heard().has_value();
  listen_->setText(isHeard ? kStop : kListen);
  notice_->SetWholeText(notice);
  notice_->setToolTip(notice);
  if (notice.isEmpty()) return;
  QAccessibleEvent alert(notice_, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
  // The label may be on a tab that is not shown. Not at once, because the sound may end while
  // something else is being done.
  if (listening_->HasFailed()) QTimer::singleShot(0, this, &ListenButtons::ShowFailure);
}

void ListenButtons::ShowFailure() {
  const std::string notice = listening_->Notice();
  handlers_.RunApart(kFailure, [&] { editor_.dialogs.ShowMessage(notice); });
}

}  // namespace repvolta
