#pragma once

#include <QWidget>

namespace repvolta {

/// Shows how loud the microphone hears: a bar on a scale with a range that is right for speech.
/// Where the bar ends stands in words beside it, so that the colour need not be seen.
class LevelBar : public QWidget {
  Q_OBJECT

 public:
  explicit LevelBar(QWidget* parent = nullptr);

  /// In dBFS, the peak of a moment; minus infinity for silence, or when nothing listens.
  void ShowLevel(double level);

  /// Without a microphone that listens there is no level.
  void ShowNothing();

  /// From 0 for silence to 100 for full scale.
  int Percent() const { return percent_; }

  /// "good", "too loud", "quiet"; "" when nothing listens.
  const QString& Words() const { return words_; }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void Show(int percent, const QString& words);
  QRect Bar() const;

  int percent_ = 0;
  QString words_;
};

}  // namespace repvolta
