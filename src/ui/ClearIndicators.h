#pragma once

#include <QProxyStyle>

namespace repvolta {

/// What comes near the controls of a window.
enum class Pointing { kMouse, kFinger };

/// The desktop's style, with what it leaves open for some desktops: an outline around check boxes
/// and radio buttons that can be seen in dark colours, and around all controls in colours of high
/// contrast; room for fingers where they point; English texts whole in windows that begin at the
/// right.
class ClearIndicators : public QProxyStyle {
 public:
  using QProxyStyle::QProxyStyle;
  ClearIndicators() = default;
  explicit ClearIndicators(Pointing pointing) : pointing_(pointing) {}

  using QProxyStyle::polish;
  void polish(QWidget* widget) override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option = nullptr,
                const QWidget* widget = nullptr, QStyleHintReturn* more = nullptr) const override;
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                         const QWidget* widget) const override;
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override;
  void drawItemText(QPainter* painter, const QRect& place, int flags, const QPalette& palette,
                    bool enabled, const QString& text, QPalette::ColorRole role) const override;

 private:
  bool NeedsOutlines(const QStyleOption& option) const;

  Pointing pointing_ = Pointing::kMouse;
};

}  // namespace repvolta
