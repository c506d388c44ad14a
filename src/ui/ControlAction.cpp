#include "ui/ControlAction.h"

#include <QAbstractButton>
#include <QEvent>
#include <QLabel>
#include <QTabWidget>

#include "ui/Keys.h"
#include "ui/RowList.h"

namespace repvolta {
namespace {

/// A page of a tab widget.
struct Tab {
  QTabWidget* tabs = nullptr;
  QWidget* page = nullptr;
};

/// The page that the control lies on, or is; none for a control beside the tabs.
Tab TabOf(QWidget& control) {
  for (QWidget* page = &control; page != nullptr; page = page->parentWidget()) {
    const QWidget* stack = page->parentWidget();
    auto* tabs = stack ? qobject_cast<QTabWidget*>(stack->parentWidget()) : nullptr;
    if (tabs != nullptr && tabs->indexOf(page) >= 0) return {tabs, page};
  }
  return {};
}

/// The label with the mnemonic of the control, without its colon.
QString LabelOf(const QWidget& control) {
  for (const auto* label : control.window()->findChildren<QLabel*>()) {
    if (label->buddy() == &control) return QString(label->text()).remove(':');
  }
  return control.accessibleName();
}

/// The names of the two values of a set are the user's choice, and stand behind a colon.
QString TextOfList(const QWidget& list, const QString& text) {
  const QString field = list.accessibleName().section(':', 1);
  return field.isEmpty() ? text : text + ":" + field;
}

}  // namespace

ControlAction::ControlAction(QWidget& control, const QString& text, QObject* parent)
    : QAction(parent), control_(control), text_(text) {
  control.installEventFilter(this);
  if (auto* button = qobject_cast<QAbstractButton*>(&control)) {
    setCheckable(button->isCheckable());
    connect(button, &QAbstractButton::toggled, this, &ControlAction::FollowControl);
  } else if (auto* list = qobject_cast<RowList*>(&control)) {
    connect(list, &RowList::RowSelected, this, &ControlAction::FollowControl);
  }
  connect(this, &QAction::triggered, this, &ControlAction::Use);
  FollowControl();
}

QString ControlAction::TextOfControl() const {
  const QString key = control_.property(kKeyProperty).toString();
  const auto withKey = [&](const QString& text) {
    return key.isEmpty() ? text : text + "\t" + key;
  };
  if (const auto* button = qobject_cast<const QAbstractButton*>(&control_)) {
    return withKey(button->text().isEmpty() ? text_ : button->text());
  }
  if (qobject_cast<const RowList*>(&control_) != nullptr) {
    return TextOfList(control_, text_) + "\tEnter";
  }
  const Tab tab = TabOf(control_);
  if (tab.page == &control_) return tab.tabs->tabText(tab.tabs->indexOf(tab.page));
  return text_.isEmpty() ? LabelOf(control_) : text_;
}

void ControlAction::FollowControl() {
  setEnabled(CanBeUsed());
  setToolTip(control_.toolTip());
  const auto* button = qobject_cast<const QAbstractButton*>(&control_);
  if (button == nullptr) return;
  setIcon(button->icon());
  setChecked(button->isChecked());
}

bool ControlAction::CanBeUsed() const {
  if (!control_.isEnabled()) return false;
  const Tab tab = TabOf(control_);
  if (tab.page == &control_) return true;
  const QWidget* whole = tab.page ? tab.page : control_.window();
  if (!control_.isVisibleTo(whole)) return false;
  const auto* list = qobject_cast<const RowList*>(&control_);
  return list == nullptr || list->SelectedRow() >= 0;
}

/// Showing the tab fills it, after which the control may no longer be there.
void ControlAction::Use() {
  const Tab tab = TabOf(control_);
  if (tab.page != nullptr) tab.tabs->setCurrentWidget(tab.page);
  if (tab.page == &control_ || !CanBeUsed()) {
    FollowControl();
    return;
  }
  if (auto* button = qobject_cast<QAbstractButton*>(&control_)) {
    button->click();
  } else if (auto* list = qobject_cast<RowList*>(&control_)) {
    Q_EMIT list->RowChosen(list->SelectedRow());
  } else {
    control_.setFocus(Qt::ShortcutFocusReason);
  }
  FollowControl();
}

bool ControlAction::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::EnabledChange:
    case QEvent::Show:
    case QEvent::Hide:
    case QEvent::ToolTipChange:
      FollowControl();
      break;
    default:
      break;
  }
  return QAction::eventFilter(watched, event);
}

}  // namespace repvolta
