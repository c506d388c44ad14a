#pragma once

#include <QProxyStyle>

namespace repvolta {

/// The desktop's style, with an outline around check boxes and radio buttons that can be seen in
/// dark colours, too.
class ClearIndicators : public QProxyStyle {
 public:
  using QProxyStyle::QProxyStyle;

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
};

}  // namespace repvolta
