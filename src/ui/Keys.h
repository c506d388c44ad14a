#pragma once

#include <QAbstractButton>
#include <QAction>
#include <QKeySequence>
#include <QWidget>

namespace repvolta {

/// The property of a button that holds the text of its key, for the menu.
inline constexpr const char* kKeyProperty = "key";

/// Lets a key click the button while the focus is on `scope` or a widget in it. A disabled button
/// is not clicked.
void AddKey(QWidget* scope, const QKeySequence& key, QAbstractButton* button);

/// The same for any focus in the window, or none, while `scope` is visible.
void AddWindowKey(QWidget* scope, const QKeySequence& key, QAbstractButton* button);

/// A command of the window that has no button, with its key, for the menu.
QAction* AddCommand(QWidget* window, const char* objectName, const QString& text,
                    const QKeySequence& key = {});

}  // namespace repvolta
