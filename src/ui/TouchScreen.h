#pragma once

#include <QSize>
#include <QStyle>

class QAbstractScrollArea;
class QWidget;

namespace repvolta {

/// Whether this computer has a screen that people touch.
bool HasTouchScreen();

/// What a style gives as the size of a control, grown so that a finger hits it.
QSize RoomForFinger(QStyle::ContentsType type, const QSize& size);

/// Lets a finger that is drawn over the area scroll it, without a bounce at its ends. A mouse and
/// what is dragged with it go on as before.
void ScrollByFinger(QAbstractScrollArea& area);

/// The least height of a row in the widget's lists; 0 where no finger comes.
int LeastRowHeight(const QWidget& widget);

/// The measure by which a style answers LeastRowHeight.
constexpr auto kLeastRowHeight = static_cast<QStyle::PixelMetric>(QStyle::PM_CustomBase + 1);
constexpr int kFingerHeight = 36;  // pixels at 96 per inch: nine and a half millimetres

}  // namespace repvolta
