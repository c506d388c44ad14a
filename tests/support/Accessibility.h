#pragma once

#include <QAbstractButton>
#include <QAccessible>
#include <QAccessibleInterface>
#include <QLabel>
#include <QWidget>
#include <map>
#include <string>

namespace repvolta {

/// What a screen reader says for a control: the text of its label, if it has one, else its name.
inline std::string HeardName(QWidget& control) {
  QAccessibleInterface* heard = QAccessible::queryAccessibleInterface(&control);
  const auto labels = heard->relations(QAccessible::Label);
  const QString name = (labels.isEmpty() ? heard : labels.first().first)->text(QAccessible::Name);
  return name.toStdString();
}

/// How often each name is heard among the controls of the window that can have the focus.
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

/// How often each mnemonic letter stands in the window.
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
