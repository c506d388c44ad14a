#pragma once

#include <QChartView>

#include "editing/GrowthAheadView.h"

namespace repvolta {

/// Draws growth ahead: steps, one line a value, told apart by colour, dashes and marks; hollow
/// marks are those of the second value, whose axis is on the right.
class GrowthPicture : public QChartView {
  Q_OBJECT

 public:
  explicit GrowthPicture(QWidget* parent = nullptr);

  void Show(const GrowthAheadView& view);

  QSize minimumSizeHint() const override;
  QSize sizeHint() const override;

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void Draw();

  GrowthAheadView view_{};
};

}  // namespace repvolta
