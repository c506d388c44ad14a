#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QProxyStyle>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QStyleFactory>
#include <QStyleOptionButton>
#include <QTableWidget>
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <initializer_list>
#include <memory>
#include <type_traits>

#include "ui/ClearIndicators.h"

namespace repvolta {
namespace {

const QColor kDark(53, 53, 53);

QPalette Contrasting() {
  return {Qt::white, Qt::black, Qt::white, Qt::black, Qt::gray,
          Qt::white, Qt::white, Qt::black, Qt::black};
}

/// The contrast of two colours, from 1 to 21, as guidelines for accessible pages compute it.
double Contrast(const QColor& one, const QColor& other) {
  const auto part = [](double value) {
    return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
  };
  const auto light = [&](const QColor& colour) {
    return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) +
           0.0722 * part(colour.blueF());
  };
  const double a = light(one);
  const double b = light(other);
  return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

/// A button in the style.
template <class Button>
class Painted {
 public:
  Painted() { button_.setStyle(&style_); }

  /// The largest contrast with the window that a pixel of the indicator's upper edge has.
  double ContrastOfEdge(const QPalette& palette) {
    button_.setPalette(palette);
    button_.resize(button_.sizeHint());
    const QImage image = button_.grab().toImage();
    QStyleOptionButton option;
    option.initFrom(&button_);
    const QRect box =
        style_.subElementRect(std::is_same_v<Button, QCheckBox> ? QStyle::SE_CheckBoxIndicator
                                                                : QStyle::SE_RadioButtonIndicator,
                              &option, &button_);
    double contrast = 1;
    for (int y = box.top(); y <= box.top() + 1; ++y) {
      contrast = std::max(contrast, Contrast(image.pixelColor(box.center().x(), y),
                                             palette.color(QPalette::Window)));
    }
    return contrast;
  }

  /// As it is painted in light colours by `style`, or by its own.
  QImage InLight(QStyle* style = nullptr) {
    button_.setStyle(style == nullptr ? &style_ : style);
    button_.setPalette(QPalette(QColor(239, 239, 239)));
    button_.resize(button_.sizeHint());
    return button_.grab().toImage();
  }

 private:
  ClearIndicators style_{QStyleFactory::create("fusion")};
  Button button_;
};

TEST(ClearIndicatorsTest, AreOutlinedInDarkColours) {
  QPalette dark(kDark);
  dark.setColor(QPalette::Base, QColor(35, 35, 35));
  EXPECT_GE(Painted<QCheckBox>().ContrastOfEdge(dark), 3);
  EXPECT_GE(Painted<QRadioButton>().ContrastOfEdge(dark), 3);
}

TEST(ClearIndicatorsTest, AreOutlinedInHighContrast) {
  EXPECT_GE(Painted<QCheckBox>().ContrastOfEdge(Contrasting()), 3);
  EXPECT_GE(Painted<QRadioButton>().ContrastOfEdge(Contrasting()), 3);
}

TEST(ClearIndicatorsTest, AreThoseOfTheStyleInLightColours) {
  const std::unique_ptr<QStyle> plain(QStyleFactory::create("fusion"));
  Painted<QCheckBox> box;
  Painted<QRadioButton> radio;
  EXPECT_EQ(box.InLight(), box.InLight(plain.get()));
  EXPECT_EQ(radio.InLight(), radio.InLight(plain.get()));
}

/// The largest contrast with the window that the middle column of the widget's picture has.
double ContrastIn(QWidget& widget, const QPalette& palette) {
  ClearIndicators style(QStyleFactory::create("fusion"));
  widget.setStyle(&style);
  widget.setPalette(palette);
  widget.resize(widget.sizeHint());
  const QImage image = widget.grab().toImage();
  widget.setStyle(nullptr);
  double contrast = 1;
  for (int y = 0; y < image.height(); ++y) {
    contrast = std::max(contrast, Contrast(image.pixelColor(image.width() / 2, y),
                                           palette.color(QPalette::Window)));
  }
  return contrast;
}

TEST(ClearIndicatorsTest, OutlineAllControlsInHighContrast) {
  QPushButton button;
  QListWidget list;
  QComboBox box;
  QLineEdit line;
  QSlider slider(Qt::Horizontal);
  for (QWidget* control : std::initializer_list<QWidget*>{&button, &list, &box, &line, &slider}) {
    EXPECT_GE(ContrastIn(*control, Contrasting()), 3) << control->metaObject()->className();
  }
}

/// How far the outlines of a control can be seen that lies at (place, place) of a window, on a
/// screen of that scale: the least of the largest contrasts near its four edges.
double ContrastOfEdges(QWidget& control, int place, qreal scale) {
  ClearIndicators style(QStyleFactory::create("fusion"));
  QWidget window;
  window.setPalette(Contrasting());
  control.setParent(&window);
  control.setStyle(&style);
  control.setGeometry(place, place, 60, 30);
  window.resize(100, 60);
  control.show();
  QImage image(window.size() * scale, QImage::Format_RGB32);
  image.setDevicePixelRatio(scale);
  window.render(&image);
  control.setParent(nullptr);
  control.setStyle(nullptr);
  const auto best = [&](QPointF at, QPointF inwards) {
    double contrast = 1;
    for (int step = -1; step <= 2; ++step) {
      const QPoint pixel = (at * scale).toPoint() + (inwards * step).toPoint();
      contrast = std::max(contrast, Contrast(image.pixelColor(pixel), Qt::black));
    }
    return contrast;
  };
  const QPointF middle = QRectF(control.geometry()).center();
  const QRectF edges(place, place, 60, 30);
  return std::min(
      {best({middle.x(), edges.top()}, {0, 1}), best({edges.left(), middle.y()}, {1, 0}),
       best({middle.x(), edges.bottom()}, {0, -1}), best({edges.right(), middle.y()}, {-1, 0})});
}

TEST(ClearIndicatorsTest, OutlineAllSidesOnScreensOfAnyScale) {
  QLineEdit line;
  QPushButton button;
  for (QWidget* control : std::initializer_list<QWidget*>{&line, &button}) {
    for (const qreal scale : {1.0, 1.25, 1.5, 1.75, 2.0}) {
      for (const int place : {4, 5, 6, 7}) {
        EXPECT_GE(ContrastOfEdges(*control, place, scale), 3)
            << control->metaObject()->className() << " at " << place << ", scale " << scale;
      }
    }
  }
}

TEST(ClearIndicatorsTest, DivideTheCellsOfATableInHighContrast) {
  ClearIndicators style;
  QTableWidget table(2, 2);
  table.setStyle(&style);
  table.setPalette(Contrasting());
  table.resize(300, 200);
  const QImage image = table.viewport()->grab().toImage();
  const int line = table.rowViewportPosition(1) - 1;
  EXPECT_GE(Contrast(image.pixelColor(5, line), Qt::black), 3);
}

TEST(ClearIndicatorsTest, OutlineNoButtonInOrdinaryColours) {
  const QPalette light(QColor(239, 239, 239));
  const std::unique_ptr<QStyle> plain(QStyleFactory::create("fusion"));
  ClearIndicators style(QStyleFactory::create("fusion"));
  QPushButton button;
  button.setPalette(light);
  button.setStyle(&style);
  const QImage clear = button.grab().toImage();
  button.setStyle(plain.get());
  EXPECT_EQ(clear, button.grab().toImage());
  button.setStyle(nullptr);
}

/// The style of a desktop that says how long its animations last; 0 where people want none.
class MovingStyle : public QProxyStyle {
 public:
  explicit MovingStyle(int milliseconds) : milliseconds_(milliseconds) {}

  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* more) const override {
    if (hint == SH_Widget_Animation_Duration) return milliseconds_;
    return QProxyStyle::styleHint(hint, option, widget, more);
  }

 private:
  int milliseconds_;
};

TEST(ClearIndicatorsTest, MoveAsMuchAsTheDesktopWants) {
  for (const int milliseconds : {0, 300}) {
    const ClearIndicators style(new MovingStyle(milliseconds));
    EXPECT_EQ(style.styleHint(QStyle::SH_Widget_Animation_Duration), milliseconds);
  }
}

/// How the style paints a text of a control, at the left, in a window of that direction.
QImage PaintedText(const QString& text, Qt::LayoutDirection direction) {
  const ClearIndicators style(QStyleFactory::create("fusion"));
  QImage image(300, 30, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  painter.setLayoutDirection(direction);
  style.drawItemText(&painter, image.rect(), Qt::AlignLeft | Qt::AlignAbsolute, QPalette(), true,
                     text, QPalette::NoRole);
  return image;
}

TEST(ClearIndicatorsTest, KeepEnglishTextsWholeInWindowsThatBeginAtTheRight) {
  for (const char* text : {"03 sets, 05:20 Exercise", "/home/kim/Music", "On these days:"}) {
    EXPECT_EQ(PaintedText(text, Qt::RightToLeft), PaintedText(text, Qt::LeftToRight)) << text;
  }
}

/// The same for a row of a list.
QImage PaintedRow(const QString& text, Qt::LayoutDirection direction) {
  const ClearIndicators style(QStyleFactory::create("fusion"));
  QImage image(300, 30, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  QStyleOptionViewItem row;
  row.rect = image.rect();
  row.direction = direction;
  row.displayAlignment = Qt::AlignHCenter;
  row.features = QStyleOptionViewItem::HasDisplay;
  row.text = text;
  style.drawControl(QStyle::CE_ItemViewItem, &row, &painter, nullptr);
  return image;
}

TEST(ClearIndicatorsTest, KeepEnglishRowsWholeInListsThatBeginAtTheRight) {
  EXPECT_EQ(PaintedRow("/home/kim/Music", Qt::RightToLeft),
            PaintedRow("/home/kim/Music", Qt::LeftToRight));
}

}  // namespace
}  // namespace repvolta
