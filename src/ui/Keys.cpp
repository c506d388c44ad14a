#include "ui/Keys.h"

#include <QShortcut>

namespace repvolta {
namespace {

void AddShortcut(QWidget* scope, const QKeySequence& key, QAbstractButton* button,
                 Qt::ShortcutContext context) {
  auto* shortcut = new QShortcut(key, scope);
  shortcut->setContext(context);
  shortcut->setAutoRepeat(false);
  QObject::connect(shortcut, &QShortcut::activated, button, &QAbstractButton::click);
}

}  // namespace

void AddKey(QWidget* scope, const QKeySequence& key, QAbstractButton* button) {
  AddShortcut(scope, key, button, Qt::WidgetWithChildrenShortcut);
}

void AddWindowKey(QWidget* scope, const QKeySequence& key, QAbstractButton* button) {
  AddShortcut(scope, key, button, Qt::WindowShortcut);
}

}  // namespace repvolta
