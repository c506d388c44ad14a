#include "ui/LargeLabel.h"

#include <QEvent>
#include <QFontMetrics>

namespace repvolta {
namespace {

// In heights of the window's font.
constexpr int kLargest = 12;
constexpr int kHeight = 12;
constexpr int kLeastHeight = 6;

// In characters of the window's font.
constexpr int kWidth = 70;
constexpr int kLeastWidth = 30;

QFont InPixels(QFont font, int pixels) {
  font.setPixelSize(pixels);
  return font;
}

}  // namespace

LargeLabel::LargeLabel(QWidget* parent) : QLabel(parent), usual_(QFontInfo(font()).pixelSize()) {
  setTextFormat(Qt::PlainText);
  setWordWrap(true);
  setAlignment(Qt::AlignCenter);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void LargeLabel::ShowText(const QString& text) {
  if (text == this->text()) return;
  setText(text);
  FitFont();
}

QSize LargeLabel::sizeHint() const { return {kWidth * usual_ / 2, kHeight * usual_}; }

QSize LargeLabel::minimumSizeHint() const {
  return {kLeastWidth * usual_ / 2, kLeastHeight * usual_};
}

void LargeLabel::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  FitFont();
}

void LargeLabel::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  // Not of its own font, which is set below.
  if (event->type() != QEvent::ApplicationFontChange || parentWidget() == nullptr) return;
  usual_ = QFontInfo(parentWidget()->font()).pixelSize();
  FitFont();
}

bool LargeLabel::Fits(int pixels) const {
  const QFontMetrics metrics(InPixels(font(), pixels));
  for (const QString& word : text().split(' ')) {
    if (metrics.horizontalAdvance(word) > width()) return false;
  }
  const QRect needed =
      metrics.boundingRect(QRect(0, 0, width(), 0), Qt::AlignCenter | Qt::TextWordWrap, text());
  return needed.height() <= height();
}

void LargeLabel::FitFont() {
  int least = usual_;
  int most = kLargest * usual_;
  while (least < most) {
    const int middle = (least + most + 1) / 2;
    if (Fits(middle)) {
      least = middle;
    } else {
      most = middle - 1;
    }
  }
  setFont(InPixels(font(), least));
}

}  // namespace repvolta
