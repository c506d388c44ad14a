#include "ui/SheetText.h"

#include <QFontMetricsF>
#include <QTextOption>
#include <algorithm>
#include <cmath>

namespace repvolta {
namespace {

constexpr qreal kMillimetresOfInch = 25.4;
constexpr qreal kPointsOfInch = 72;

}  // namespace

qreal SheetPaper::Millimetres(qreal length) const {
  return length / kMillimetresOfInch * device_->logicalDpiX();
}

QFont SheetPaper::Font(int points, QFont::Weight weight) const {
  QFont font;
  font.setStyle(QFont::StyleNormal);
  font.setWeight(weight);
  font.setPixelSize(static_cast<int>(std::lround(points * device_->logicalDpiX() / kPointsOfInch)));
  return font;
}

SheetText::SheetText(const SheetPaper& paper, const std::string& text, const QFont& font,
                     qreal width)
    : layout_(std::make_unique<QTextLayout>(QString::fromStdString(text), font, paper.Device())) {
  QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout_->setTextOption(option);
  layout_->beginLayout();
  qreal top = 0;
  for (QTextLine line = layout_->createLine(); line.isValid(); line = layout_->createLine()) {
    line.setLineWidth(width);
    line.setPosition({0, top});
    top += line.height();
  }
  layout_->endLayout();
}

qreal SheetText::Height() const { return layout_->boundingRect().height(); }

qreal SheetText::Width() const {
  qreal width = 0;
  for (int i = 0; i < layout_->lineCount(); ++i) {
    width = std::max(width, layout_->lineAt(i).naturalTextWidth());
  }
  return width;
}

void SheetText::Draw(QPainter& painter, const QPointF& place) const {
  layout_->draw(&painter, place);
}

QFont FontThatFits(const SheetPaper& paper, const std::string& text, QFont font, qreal width) {
  const qreal needed =
      QFontMetricsF(font, paper.Device()).horizontalAdvance(QString::fromStdString(text));
  if (needed > width) font.setPixelSize(static_cast<int>(font.pixelSize() * width / needed));
  return font;
}

}  // namespace repvolta
