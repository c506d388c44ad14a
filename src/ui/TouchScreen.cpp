#include "ui/TouchScreen.h"

#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QInputDevice>
#include <QScroller>
#include <algorithm>

#include "ui/FingerTaps.h"

namespace repvolta {

bool HasTouchScreen() {
  const QList<const QInputDevice*> devices = QInputDevice::devices();
  return std::any_of(devices.begin(), devices.end(), [](const QInputDevice* device) {
    return device->type() == QInputDevice::DeviceType::TouchScreen;
  });
}

QSize RoomForFinger(QStyle::ContentsType type, const QSize& size) {
  switch (type) {
    case QStyle::CT_PushButton:
    case QStyle::CT_ToolButton:
    case QStyle::CT_ComboBox:
    case QStyle::CT_LineEdit:
    case QStyle::CT_SpinBox:
    case QStyle::CT_ItemViewItem:
    case QStyle::CT_MenuItem:
    case QStyle::CT_MenuBarItem:
    case QStyle::CT_TabBarTab:
    case QStyle::CT_CheckBox:
    case QStyle::CT_RadioButton:
    case QStyle::CT_Slider:
    case QStyle::CT_HeaderSection:
      return size.expandedTo({0, kFingerHeight});
    default:
      return size;
  }
}

void ScrollByFinger(QAbstractScrollArea& area) {
  if (QScroller::hasScroller(area.viewport())) return;
  QScroller::grabGesture(area.viewport(), QScroller::TouchGesture);
  QScroller* scroller = QScroller::scroller(area.viewport());
  QScrollerProperties properties = scroller->scrollerProperties();
  for (const auto edge : {QScrollerProperties::HorizontalOvershootPolicy,
                          QScrollerProperties::VerticalOvershootPolicy}) {
    properties.setScrollMetric(edge, QVariant::fromValue(QScrollerProperties::OvershootAlwaysOff));
  }
  scroller->setScrollerProperties(properties);
  if (auto* view = qobject_cast<QAbstractItemView*>(&area)) new FingerTaps(view);
}

int LeastRowHeight(const QWidget& widget) {
  return widget.style()->pixelMetric(kLeastRowHeight, nullptr, &widget);
}

}  // namespace repvolta
