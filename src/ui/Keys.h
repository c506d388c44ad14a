#pragma once

#include <QAbstractButton>
#include <QKeySequence>
#include <QWidget>

namespace repvolta {

/// Lets a key click the button while the focus is on `scope` or a widget in it. A disabled button
/// is not clicked.
void AddKey(QWidget* scope, const QKeySequence& key, QAbstractButton* button);

/// The same for any focus in the window, or none, while `scope` is visible.
void AddWindowKey(QWidget* scope, const QKeySequence& key, QAbstractButton* button);

}  // namespace repvolta
