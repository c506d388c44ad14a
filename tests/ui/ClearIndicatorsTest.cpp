#include <QCheckBox>
#include <QRadioButton>
#include <QStyleFactory>
#include <gtest/gtest.h>

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

template <class Button>
class ClearIndicatorsTest : public testing::Test {
 protected:
  ClearIndicatorsTest() { button_.setStyle(&style_); }

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

  ClearIndicators style_{QStyleFactory::create("fusion")};
  Button button_;
};

using Buttons = testing::Types<QCheckBox, QRadioButton>;
TYPED_TEST_SUITE(ClearIndicatorsTest, Buttons);

TYPED_TEST(ClearIndicatorsTest, AreOutlinedInDarkColours) {
  QPalette dark(kDark);
  dark.setColor(QPalette::Base, QColor(35, 35, 35));
  EXPECT_GE(this->ContrastOfEdge(dark), 3);
}

TYPED_TEST(ClearIndicatorsTest, AreOutlinedInHighContrast) {
  EXPECT_GE(this->ContrastOfEdge(QPalette(Qt::white, Qt::black, Qt::white, Qt::black, Qt::gray,
                                          Qt::white, Qt::white, Qt::black, Qt::black)),
            3);
}

TYPED_TEST(ClearIndicatorsTest, AreThoseOfTheStyleInLightColours) {
  const QPalette light(QColor(239, 239, 239));
  const auto image = [&](QStyle* style) {
    this->button_.setStyle(style);
    this->button_.setPalette(light);
    this->button_.resize(this->button_.sizeHint());
    return this->button_.grab().toImage();
  };
  const std::unique_ptr<QStyle> plain(QStyleFactory::create("fusion"));
  const QImage expected = image(plain.get());
  EXPECT_EQ(image(&this->style_), expected);
}

}  // namespace
}  // namespace repvolta
