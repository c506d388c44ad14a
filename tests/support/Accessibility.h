#pragma once

#include <QAbstractButton>
#include <QAccessible>
#include <QAccessibleInterface>
#include <QLabel>
#include <QWidget>
#include <map>
#include <string>

namespace repvolta {

/// The text that a screen reader says for a control: its label's, if it has one, else its name.
inline std::string HeardName(QWidget& control) {
  QAccessibleInterface* heard = QAccessible::queryAccessibleInterface(&control);
  const auto labels = heard->relations(QAccessible::Label);
  const QString name = (labels.isEmpty() ? heard : labels.first().first)->text(QAccessible::Name);
  return name.toStdString();
}

/// How many of the window's focusable controls have each name.
inline std::map<std::string, int> HeardNames(const QWidget& window) {
  std::map<std::string, int> names;
  for (QWidget* control : window.findChildren<QWidget*>()) {
    const bool inner = control->focusProxy() || control->objectName().startsWith("qt_");
    if (inner || !(control->focusPolicy() & Qt::TabFocus) || !control->isVisibleTo(&window))
      continue;
    ++names[HeardName(*control)];
  }
  return names;
}

/// How often the window uses each mnemonic letter.
inline std::map<std::string, int> Mnemonics(const QWidget& window) {
  std::map<std::string, int> letters;
  const auto count = [&](const QString& text) {
    const std::string letter = QKeySequence::mnemonic(text).toString().toStdString();
    if (!letter.empty()) ++letters[letter];
  };
  for (const auto* button : window.findChildren<QAbstractButton*>()) count(button->text());
  for (const auto* label : window.findChildren<QLabel*>()) {
    if (label->buddy()) count(label->text());
  }
  return letters;
}

}  // namespace repvolta
