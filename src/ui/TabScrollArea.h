#pragma once

#include <QScrollArea>

namespace repvolta {

/// Shows one tab of the main window, and scrolls it only where the screen is too small for it.
class TabScrollArea : public QScrollArea {
 public:
  using QScrollArea::QScrollArea;

  /// With half a line to spare, since labels are a few pixels higher as soon as they say something.
  QSize sizeHint() const override {
    if (widget() == nullptr) return QScrollArea::sizeHint();
    return widget()->sizeHint() + QSize(0, fontMetrics().height() / 2);
  }
};

}  // namespace repvolta
