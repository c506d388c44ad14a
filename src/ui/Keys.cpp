#include "ui/Keys.h"

#include <QShortcut>

namespace repvolta {

void AddKey(QWidget* scope, const QKeySequence& key, QAbstractButton* button) {
  auto* shortcut = new QShortcut(key, scope);
  shortcut->setContext(Qt::WidgetWithChildrenShortcut);
  shortcut->setAutoRepeat(false);
  QObject::connect(shortcut, &QShortcut::activated, button, &QAbstractButton::click);
}

}  // namespace repvolta
