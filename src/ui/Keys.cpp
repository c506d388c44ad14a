#include "ui/Keys.h"

#include <QShortcut>

namespace repvolta {
namespace {

void AddShortcut(QWidget* scope, const QKeySequence& key, QAbstractButton* button,
                 Qt::ShortcutContext context) {
  auto* shortcut = new QShortcut(key, scope);
  shortcut->setContext(context);
  shortcut->setAutoRepeat(false);
  button->setProperty(kKeyProperty, key.toString(QKeySequence::NativeText));
  QObject::connect(shortcut, &QShortcut::activated, button, &QAbstractButton::click);
}

}  // namespace

void AddKey(QWidget* scope, const QKeySequence& key, QAbstractButton* button) {
  AddShortcut(scope, key, button, Qt::WidgetWithChildrenShortcut);
}

void AddWindowKey(QWidget* scope, const QKeySequence& key, QAbstractButton* button) {
  AddShortcut(scope, key, button, Qt::WindowShortcut);
}

QAction* AddCommand(QWidget* window, const char* objectName, const QString& text,
                    const QKeySequence& key) {
  auto* action = new QAction(text, window);
  action->setObjectName(objectName);
  action->setShortcut(key);
  action->setAutoRepeat(false);
  window->addAction(action);
  return action;
}

}  // namespace repvolta
