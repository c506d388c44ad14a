#pragma once

#include <QAbstractItemView>
#include <QMouseEvent>
#include <QObject>
#include <QPointF>

namespace repvolta {

/// Lets a finger act on a row when it leaves it, and only where it did not scroll: a list selects a
/// row as soon as a mouse button is pressed, and a finger that scrolls presses first.
class FingerTaps : public QObject {
 public:
  /// Belongs to the view.
  explicit FingerTaps(QAbstractItemView* view);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool Take(const QMouseEvent& event);
  void Tap(const QMouseEvent& release, QEvent::Type begin);
  void Send(QEvent::Type type, const QMouseEvent& like);

  QAbstractItemView* view_;
  QPointF pressedAt_;
  bool isPressed_ = false;
  bool isSending_ = false;
};

}  // namespace repvolta
