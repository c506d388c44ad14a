#pragma once

#include <QAbstractButton>
#include <QKeySequence>
#include <QWidget>

namespace repvolta {

/// Lets a key click the button while the focus is on `scope` or something in it. A button that is
/// disabled is not clicked.
void AddKey(QWidget* scope, const QKeySequence& key, QAbstractButton* button);

/// The same wherever the focus is in the window, or nowhere, while `scope` is on the screen.
void AddWindowKey(QWidget* scope, const QKeySequence& key, QAbstractButton* button);

}  // namespace repvolta
