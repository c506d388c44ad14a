#include "ui/FingerTaps.h"

#include <QApplication>
#include <QInputDevice>
#include <QPointer>

namespace repvolta {

FingerTaps::FingerTaps(QAbstractItemView* view) : QObject(view), view_(view) {
  view_->viewport()->installEventFilter(this);
}

bool FingerTaps::eventFilter(QObject* watched, QEvent* event) {
  if (isSending_ || !event->isPointerEvent()) return QObject::eventFilter(watched, event);
  const auto& pointer = *static_cast<QPointerEvent*>(event);
  if (pointer.device()->type() != QInputDevice::DeviceType::TouchScreen) return false;
  const auto* mouse = dynamic_cast<QMouseEvent*>(event);
  return mouse != nullptr && Take(*mouse);
}

/// Whether the event goes no further.
bool FingerTaps::Take(const QMouseEvent& event) {
  switch (event.type()) {
    case QEvent::MouseButtonPress:
      pressedAt_ = event.globalPosition();
      isPressed_ = true;
      return true;
    case QEvent::MouseMove:
    case QEvent::MouseButtonDblClick:
      return true;
    case QEvent::MouseButtonRelease:
      // Of a second tap, Qt may tell the end only.
      Tap(event, isPressed_ ? QEvent::MouseButtonPress : QEvent::MouseButtonDblClick);
      return true;
    default:
      return false;
  }
}

void FingerTaps::Tap(const QMouseEvent& release, QEvent::Type begin) {
  isPressed_ = false;
  const QPointF moved = release.globalPosition() - pressedAt_;
  if (moved.manhattanLength() >= QApplication::startDragDistance()) return;
  // What a tap does may end with the list.
  const QPointer<FingerTaps> self(this);
  Send(begin, release);
  // cppcheck-suppress knownConditionTrueFalse
  if (self) Send(QEvent::MouseButtonRelease, release);
}

void FingerTaps::Send(QEvent::Type type, const QMouseEvent& like) {
  const QPointer<FingerTaps> self(this);
  const bool isDown = type != QEvent::MouseButtonRelease;
  QMouseEvent event(type, like.position(), like.globalPosition(), Qt::LeftButton,
                    isDown ? Qt::LeftButton : Qt::NoButton, like.modifiers());
  isSending_ = true;
  QCoreApplication::sendEvent(view_->viewport(), &event);
  // cppcheck-suppress knownConditionTrueFalse
  if (self) isSending_ = false;
}

}  // namespace repvolta
