#include "ui/ClearIndicators.h"

#include <QAbstractScrollArea>
#include <QPainter>
#include <QStyleOption>
#include <cstdlib>

#include "ui/TouchScreen.h"

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

/// Whether the window and its texts are about as light and as dark as can be: a palette that
/// somebody chose to see better.
bool IsHighContrast(const QPalette& palette) {
  constexpr int kLeastDifference = 250;
  return std::abs(palette.color(QPalette::WindowText).lightness() -
                  palette.color(QPalette::Window).lightness()) >= kLeastDifference;
}

bool IsSeparator(const QStyleOption* option) {
  const auto* line = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
  return line && line->menuItemType == QStyleOptionMenuItem::Separator;
}

enum class Corners { kSharp, kRound };

/// Smoothed and wholly within the place: on screens of 125 % to 175 % a control ends between two
/// pixels, and a sharp line there may be cut off with the control.
void DrawOutline(QPainter& painter, const QRect& place, const QPalette& palette,
                 Corners corners = Corners::kSharp) {
  const QRectF line = QRectF(place).adjusted(0.5, 0.5, -0.5, -0.5);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(OutlineOn(palette));
  painter.setBrush(Qt::NoBrush);
  if (corners == Corners::kRound) {
    painter.drawEllipse(line);
  } else {
    painter.drawRect(line);
  }
  painter.restore();
}

/// Whether an outline belongs around it. The button that Enter presses has one already.
bool IsFrame(QStyle::PrimitiveElement element, const QStyleOption& option) {
  if (element == QStyle::PE_PanelButtonCommand) {
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
    const bool isDefault = button && (button->features & QStyleOptionButton::DefaultButton);
    return !isDefault && !(option.state & QStyle::State_HasFocus);
  }
  return element == QStyle::PE_Frame || element == QStyle::PE_FrameLineEdit ||
         element == QStyle::PE_FrameMenu || element == QStyle::PE_PanelButtonTool;
}

/// The parts of a control that somebody grasps or reads.
QList<QStyle::SubControl> OutlinedParts(QStyle::ComplexControl control) {
  switch (control) {
    case QStyle::CC_ComboBox:
      return {QStyle::SC_ComboBoxFrame};
    case QStyle::CC_SpinBox:
      return {QStyle::SC_SpinBoxFrame};
    case QStyle::CC_Slider:
      return {QStyle::SC_SliderGroove, QStyle::SC_SliderHandle};
    case QStyle::CC_ScrollBar:
      return {QStyle::SC_ScrollBarSlider};
    default:
      return {};
  }
}

/// An English text that stays whole between others that are read from the right: without this, its
/// first number or stroke goes to its end.
QString Isolated(const QString& text, Qt::LayoutDirection direction) {
  constexpr QChar kBegin(0x2066);
  constexpr QChar kEnd(0x2069);
  if (direction != Qt::RightToLeft || text.isEmpty() || text.isRightToLeft()) return text;
  return kBegin + text + kEnd;
}

}  // namespace

bool ClearIndicators::NeedsOutlines(const QStyleOption& option) const {
  // The other styles have palettes and outlines of their own for this.
  return baseStyle()->name() == "fusion" && IsHighContrast(option.palette);
}

void ClearIndicators::polish(QWidget* widget) {
  QProxyStyle::polish(widget);
  if (pointing_ != Pointing::kFinger) return;
  if (auto* area = qobject_cast<QAbstractScrollArea*>(widget)) ScrollByFinger(*area);
}

int ClearIndicators::pixelMetric(PixelMetric metric, const QStyleOption* option,
                                 const QWidget* widget) const {
  if (metric == kLeastRowHeight) return pointing_ == Pointing::kFinger ? kFingerHeight : 0;
  return QProxyStyle::pixelMetric(metric, option, widget);
}

int ClearIndicators::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                               QStyleHintReturn* more) const {
  if (hint == SH_Table_GridLineColor && option && NeedsOutlines(*option)) {
    return static_cast<int>(OutlineOn(option->palette).rgba());
  }
  return QProxyStyle::styleHint(hint, option, widget, more);
}

QSize ClearIndicators::sizeFromContents(ContentsType type, const QStyleOption* option,
                                        const QSize& size, const QWidget* widget) const {
  const QSize usual = QProxyStyle::sizeFromContents(type, option, size, widget);
  return pointing_ == Pointing::kFinger && !IsSeparator(option) ? RoomForFinger(type, usual)
                                                                : usual;
}

void ClearIndicators::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                    QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  const bool isRound = element == PE_IndicatorRadioButton;
  if (!isRound && element != PE_IndicatorCheckBox) {
    if (IsFrame(element, *option) && NeedsOutlines(*option)) {
      DrawOutline(*painter, option->rect, option->palette);
    }
    return;
  }
  // Fusion outlines the boxes in a shade of the window's colour that is always darker; the other
  // styles have colours of their own for this.
  if (baseStyle()->name() != "fusion") return;
  if (option->palette.color(QPalette::Window).lightness() >= kMiddle) return;
  DrawOutline(*painter, option->rect, option->palette, isRound ? Corners::kRound : Corners::kSharp);
}

void ClearIndicators::drawControl(ControlElement element, const QStyleOption* option,
                                  QPainter* painter, const QWidget* widget) const {
  const auto* item = qstyleoption_cast<const QStyleOptionViewItem*>(option);
  if (element != CE_ItemViewItem || item == nullptr) {
    QProxyStyle::drawControl(element, option, painter, widget);
    return;
  }
  QStyleOptionViewItem whole(*item);
  whole.text = Isolated(item->text, item->direction);
  QProxyStyle::drawControl(element, &whole, painter, widget);
}

void ClearIndicators::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                         QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawComplexControl(control, option, painter, widget);
  if (!NeedsOutlines(*option)) return;
  for (const SubControl part : OutlinedParts(control)) {
    DrawOutline(*painter, subControlRect(control, option, part, widget), option->palette);
  }
}

// NOLINTNEXTLINE(readability-function-size): QStyle says which parameters.
void ClearIndicators::drawItemText(QPainter* painter, const QRect& place, int flags,
                                   const QPalette& palette, bool enabled, const QString& text,
                                   QPalette::ColorRole role) const {
  QProxyStyle::drawItemText(painter, place, flags, palette, enabled,
                            Isolated(text, painter->layoutDirection()), role);
}

}  // namespace repvolta
