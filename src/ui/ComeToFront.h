#pragma once

#include <QByteArray>
#include <QWidget>

namespace repvolta {

/// What the desktop gave this program at its start as the leave to come to the front; "" where
/// nobody chose it, for example when a terminal started it.
QByteArray LeaveToComeToFront();

/// Brings the window to the front, or the box that blocks it. Desktops that let no program do this
/// by itself want the leave that they gave to a later start.
void ComeToFront(QWidget& window, const QByteArray& leave);

/// As long as the owner lives, a window that gets the keyboard while a box blocks it hands it on to
/// the box.
void HandKeyboardToBoxes(QObject& owner);

}  // namespace repvolta
