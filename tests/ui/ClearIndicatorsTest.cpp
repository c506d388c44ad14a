#include <QCheckBox>
#include <QRadioButton>
#include <QStyleFactory>
#include <QStyleOptionButton>
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <memory>
#include <type_traits>

#include "ui/ClearIndicators.h"

namespace repvolta {
namespace {

const QColor kDark(53, 53, 53);

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
  const QPalette contrast(Qt::white, Qt::black, Qt::white, Qt::black, Qt::gray, Qt::white,
                          Qt::white, Qt::black, Qt::black);
  EXPECT_GE(Painted<QCheckBox>().ContrastOfEdge(contrast), 3);
  EXPECT_GE(Painted<QRadioButton>().ContrastOfEdge(contrast), 3);
}

TEST(ClearIndicatorsTest, AreThoseOfTheStyleInLightColours) {
  const std::unique_ptr<QStyle> plain(QStyleFactory::create("fusion"));
  Painted<QCheckBox> box;
  Painted<QRadioButton> radio;
  EXPECT_EQ(box.InLight(), box.InLight(plain.get()));
  EXPECT_EQ(radio.InLight(), radio.InLight(plain.get()));
}

}  // namespace
}  // namespace repvolta
