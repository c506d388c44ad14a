#include "ui/LevelBar.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <mutex>

namespace repvolta {
namespace {

constexpr int kFull = 100;
constexpr double kSoftest = -60;  // dBFS, where the scale begins

// The peaks of speech that makes a good clip, in dBFS.
constexpr double kGood = -30;
constexpr double kTooLoud = -1.5;

constexpr const char* kWordsOfQuiet = "quiet";
constexpr const char* kWordsOfGood = "good";
constexpr const char* kWordsOfTooLoud = "too loud";

// In characters of the font.
constexpr int kWidth = 30;
constexpr int kGap = 1;

int PercentOf(double level) {
  if (!std::isfinite(level)) return 0;
  return static_cast<int>(std::lround(kFull * (1 - std::clamp(level / kSoftest, 0.0, 1.0))));
}

QString WordsOf(double level) {
  if (level >= kTooLoud) return kWordsOfTooLoud;
  return level >= kGood ? kWordsOfGood : kWordsOfQuiet;
}

/// A value that a screen reader can ask for. It is not told of each change, which would talk into
/// the recording.
class LevelBarAccess : public QAccessibleWidget, public QAccessibleValueInterface {
 public:
  explicit LevelBarAccess(LevelBar* meter)
      : QAccessibleWidget(meter, QAccessible::Indicator), meter_(*meter) {}

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
  }

  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Description ? meter_.Words() : QAccessibleWidget::text(kind);
  }

  QVariant currentValue() const override { return meter_.Percent(); }
  void setCurrentValue(const QVariant& /*value*/) override {}
  QVariant minimumValue() const override { return 0; }
  QVariant maximumValue() const override { return kFull; }
  QVariant minimumStepSize() const override { return 1; }

 private:
  const LevelBar& meter_;
};

QAccessibleInterface* MakeAccess(const QString& /*className*/, QObject* object) {
  auto* meter = qobject_cast<LevelBar*>(object);
  return meter == nullptr ? nullptr : new LevelBarAccess(meter);
}

}  // namespace

LevelBar::LevelBar(QWidget* parent) : QWidget(parent) {
  static std::once_flag once;
  std::call_once(once, [] { QAccessible::installFactory(MakeAccess); });
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void LevelBar::ShowLevel(double level) { Show(PercentOf(level), WordsOf(level)); }

void LevelBar::ShowNothing() { Show(0, {}); }

void LevelBar::Show(int percent, const QString& words) {
  if (percent == percent_ && words == words_) return;
  percent_ = percent;
  words_ = words;
  update();
}

QSize LevelBar::sizeHint() const {
  return {kWidth * fontMetrics().averageCharWidth(), fontMetrics().height() * 3 / 2};
}

/// The words stand behind it.
QRect LevelBar::Bar() const {
  const int words = fontMetrics().horizontalAdvance(kWordsOfTooLoud) +
                    kGap * 2 * fontMetrics().averageCharWidth();
  return rect().adjusted(0, 0, -words - 1, -1);
}

void LevelBar::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QRect bar = Bar();
  const auto placeOf = [&](double percent) {
    return bar.left() + static_cast<int>(std::lround(bar.width() * percent / kFull));
  };
  painter.setPen(palette().color(QPalette::WindowText));
  painter.setBrush(palette().base());
  painter.drawRect(bar);
  QRect level = bar.adjusted(1, 1, 0, 0);
  level.setRight(placeOf(percent_) - 1);
  const bool isTooLoud = words_ == kWordsOfTooLoud;
  if (percent_ > 0) {
    painter.fillRect(level, palette().color(QPalette::Highlight));
    if (isTooLoud)
      painter.fillRect(level, QBrush(palette().color(QPalette::Base), Qt::BDiagPattern));
  }
  for (const double mark : {kGood, kTooLoud}) {
    const int place = placeOf(PercentOf(mark));
    painter.drawLine(place, bar.top(), place, bar.bottom());
  }
  QFont font = painter.font();
  font.setBold(isTooLoud);
  painter.setFont(font);
  const QRect words =
      rect().adjusted(bar.right() + kGap * fontMetrics().averageCharWidth(), 0, 0, 0);
  painter.drawText(words, Qt::AlignLeft | Qt::AlignVCenter, words_);
}

}  // namespace repvolta
