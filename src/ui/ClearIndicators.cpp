#include "ui/ClearIndicators.h"

#include <QPainter>
#include <QStyleOption>

namespace repvolta {
namespace {

constexpr int kMiddle = 128;  // of the lightness

/// Dark as the text, but fainter than the mark within the box.
QColor OutlineOn(const QPalette& palette) {
  constexpr float kShare = 0.65F;
  const QColor text = palette.color(QPalette::WindowText);
  const QColor ground = palette.color(QPalette::Window);
  const auto mixed = [&](float a, float b) { return a * kShare + b * (1 - kShare); };
  return QColor::fromRgbF(mixed(text.redF(), ground.redF()), mixed(text.greenF(), ground.greenF()),
                          mixed(text.blueF(), ground.blueF()));
}

}  // namespace

void ClearIndicators::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                    QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  const bool isRound = element == PE_IndicatorRadioButton;
  if (!isRound && element != PE_IndicatorCheckBox) return;
  // Fusion outlines the boxes in a shade of the window's colour that is always darker; the other
  // styles have colours of their own for this.
  if (baseStyle()->name() != "fusion") return;
  if (option->palette.color(QPalette::Window).lightness() >= kMiddle) return;
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing, isRound);
  painter->setPen(OutlineOn(option->palette));
  painter->setBrush(Qt::NoBrush);
  if (isRound) {
    painter->drawEllipse(QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5));
  } else {
    painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
  }
  painter->restore();
}

}  // namespace repvolta
