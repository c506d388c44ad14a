#pragma once

#include <QFont>
#include <QPaintDevice>
#include <QPainter>
#include <QTextLayout>
#include <memory>
#include <string>

namespace repvolta {

/// A sheet of paper, in the units of its device.
class SheetPaper {
 public:
  explicit SheetPaper(QPaintDevice& device) : device_(&device) {}

  QPaintDevice* Device() const { return device_; }
  qreal Width() const { return device_->width(); }
  qreal Height() const { return device_->height(); }
  qreal Millimetres(qreal length) const;

  /// The person's font, upright and in that size.
  QFont Font(int points, QFont::Weight weight = QFont::Normal) const;

 private:
  QPaintDevice* device_;
};

/// A text laid out on paper in lines of a width. Words that are longer are parted.
class SheetText {
 public:
  SheetText(const SheetPaper& paper, const std::string& text, const QFont& font, qreal width);

  qreal Height() const;
  qreal Width() const;  // of the longest line
  void Draw(QPainter& painter, const QPointF& place) const;

 private:
  std::unique_ptr<QTextLayout> layout_;
};

/// The font, or a smaller one in which the text has room in a single line.
QFont FontThatFits(const SheetPaper& paper, const std::string& text, QFont font, qreal width);

}  // namespace repvolta
