#include "ui/ElidedLabel.h"

#include <QFontMetrics>

namespace repvolta {

void ElidedLabel::SetWholeText(const QString& text) {
  whole_ = text;
  setAccessibleName(text);
  Elide();
}

void ElidedLabel::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  Elide();
}

void ElidedLabel::Elide() {
  setText(fontMetrics().elidedText(whole_, Qt::ElideMiddle, contentsRect().width()));
}

}  // namespace repvolta
