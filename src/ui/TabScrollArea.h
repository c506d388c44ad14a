#pragma once

#include <QScrollArea>

namespace repvolta {

/// Shows one tab of the main window, and scrolls it only where the screen is too small for it.
class TabScrollArea : public QScrollArea {
 public:
  using QScrollArea::QScrollArea;

  QSize sizeHint() const override {
    return widget() == nullptr ? QScrollArea::sizeHint() : widget()->sizeHint();
  }
};

}  // namespace repvolta
