#pragma once

#include <QLabel>

namespace repvolta {

/// A label whose text is as large as its place allows, to be read from two metres; a long text is
/// wrapped between its words.
class LargeLabel : public QLabel {
  Q_OBJECT

 public:
  explicit LargeLabel(QWidget* parent = nullptr);

  void ShowText(const QString& text);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void FitFont();
  bool Fits(int pixels) const;

  int usual_;  // the height of the window's font in pixels
};

}  // namespace repvolta
