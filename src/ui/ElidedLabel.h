#pragma once

#include <QLabel>

namespace repvolta {

/// A label of one line that leaves out the middle of a text for which it is too narrow. A screen
/// reader says the whole text.
class ElidedLabel : public QLabel {
  Q_OBJECT

 public:
  using QLabel::QLabel;

  void SetWholeText(const QString& text);
  const QString& WholeText() const { return whole_; }

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Elide();

  QString whole_;
};

}  // namespace repvolta
