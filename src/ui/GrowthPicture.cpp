#include "ui/GrowthPicture.h"

#include <QCategoryAxis>
#include <QEvent>
#include <QGraphicsLayout>
#include <QLegend>
#include <QLegendMarker>
#include <QLineSeries>
#include <QScatterSeries>
#include <QValueAxis>
#include <algorithm>
#include <array>
#include <memory>

#include "base/Days.h"

namespace repvolta {
namespace {

/// How the values of a set are drawn. Where sets have the same numbers their lines and marks lie on
/// each other: the later ones are narrower, so that all stay visible.
struct Look {
  const char* onLight;
  const char* onDark;
  Qt::PenStyle line;
  qreal width;
  QScatterSeries::MarkerShape mark;
  qreal markSize;
};

// Colours that people with any kind of colour blindness can tell apart.
constexpr std::array kLooks = {
    Look{"#0072b2", "#56b4e9", Qt::SolidLine, 5, QScatterSeries::MarkerShapeCircle, 15},
    Look{"#d55e00", "#e69f00", Qt::DashLine, 3.5, QScatterSeries::MarkerShapeRectangle, 10},
    Look{"#000000", "#f0e442", Qt::DotLine, 2, QScatterSeries::MarkerShapeTriangle, 8}};

constexpr int kDarkLightness = 128;
constexpr double kRoom = 0.03;  // so that no mark is cut off, as a part of the axis

/// The lines on one side of the picture and their axis.
struct Side {
  int field;
  Qt::Alignment alignment;
  std::string name;
};

/// What the drawing of a picture needs everywhere.
struct Paper {
  QChart& chart;
  const GrowthAheadView& view;
  const QPalette& palette;
  QFont font;

  QColor Text() const { return palette.color(QPalette::Text); }
  bool IsDark() const { return palette.color(QPalette::Base).lightness() < kDarkLightness; }
};

void Style(QAbstractAxis& axis, const Paper& paper) {
  QColor line = paper.Text();
  axis.setLabelsBrush(paper.Text());
  axis.setTitleBrush(paper.Text());
  axis.setLabelsFont(paper.font);
  axis.setTitleFont(paper.font);
  axis.setLinePen(line);
  line.setAlphaF(0.2F);
  axis.setGridLinePen(line);
}

/// "1 Jun"
QString ShortDate(double day) {
  const QString date = QString::fromStdString(EnglishDate(day));
  return date.section(' ', 1, 2);
}

QAbstractAxis* AddDays(const Paper& paper) {
  constexpr int kWeek = 7;
  constexpr int kMostLabels = 7;
  const DaySpan& span = paper.view.span;
  const int weeks = std::max(1, (span.days / kWeek + kMostLabels - 1) / kMostLabels);
  auto* axis = new QCategoryAxis;
  axis->setLabelsPosition(QCategoryAxis::AxisLabelsPositionOnValue);
  const double begin = span.first - kRoom * span.days;
  axis->setStartValue(begin);
  for (int day = 0; day <= span.days; day += weeks * kWeek) {
    axis->append(ShortDate(span.first + day), span.first + day);
  }
  axis->setRange(begin, span.first + span.days);
  axis->setTitleText(QString::fromStdString(EnglishDate(span.first) + " to " +
                                            EnglishDate(span.first + span.days)));
  Style(*axis, paper);
  paper.chart.addAxis(axis, Qt::AlignBottom);
  return axis;
}

QValueAxis* AddValues(const Paper& paper, const Side& side) {
  auto* axis = new QValueAxis;
  axis->setTitleText(QString::fromStdString(side.name));
  axis->setLabelFormat("%g");
  Style(*axis, paper);
  paper.chart.addAxis(axis, side.alignment);
  return axis;
}

QList<QPointF> LineOf(const GrowthCurve& curve, double end) {
  QList<QPointF> points;
  for (const GrowthCurve::Step& step : curve.steps) {
    if (!points.isEmpty()) points.append({step.day, points.last().y()});
    points.append({step.day, static_cast<qreal>(step.value)});
  }
  points.append({end, points.last().y()});
  return points;
}

QList<QPointF> MarksOf(const GrowthCurve& curve) {
  QList<QPointF> points;
  for (const GrowthCurve::Step& step : curve.steps) {
    points.append({step.day, static_cast<qreal>(step.value)});
  }
  return points;
}

void AddSeries(const Paper& paper, QXYSeries* series, const QList<QAbstractAxis*>& axes) {
  paper.chart.addSeries(series);
  for (QAbstractAxis* axis : axes) series->attachAxis(axis);
}

void AddCurve(const Paper& paper, const GrowthCurve& curve, const QList<QAbstractAxis*>& axes) {
  const Look& look = kLooks.at(static_cast<std::size_t>(curve.set) % kLooks.size());
  const QColor colour(paper.IsDark() ? look.onDark : look.onLight);
  auto* line = new QLineSeries;
  line->append(LineOf(curve, paper.view.span.first + paper.view.span.days));
  const qreal width = curve.field == 1 ? look.width : look.width / 2;
  line->setPen(QPen(colour, width, look.line, Qt::FlatCap));
  AddSeries(paper, line, axes);
  auto* marks = new QScatterSeries;
  marks->append(MarksOf(curve));
  marks->setName(QString::fromStdString(curve.name));
  marks->setMarkerShape(look.mark);
  marks->setMarkerSize(look.markSize);
  marks->setColor(curve.field == 1 ? colour : paper.palette.color(QPalette::Base));
  marks->setBorderColor(colour);
  AddSeries(paper, marks, axes);
  for (QLegendMarker* marker : paper.chart.legend()->markers(line)) marker->setVisible(false);
}

void AddSide(const Paper& paper, const Side& side, QAbstractAxis* days) {
  if (side.name.empty()) return;
  QValueAxis* values = AddValues(paper, side);
  float least = 0;
  float most = 0;
  bool isFirst = true;
  for (const GrowthCurve& curve : paper.view.curves) {
    if (curve.field != side.field) continue;
    AddCurve(paper, curve, {days, values});
    for (const GrowthCurve::Step& step : curve.steps) {
      least = isFirst ? step.value : std::min(least, step.value);
      most = isFirst ? step.value : std::max(most, step.value);
      isFirst = false;
    }
  }
  const double room = kRoom * (static_cast<double>(most) - static_cast<double>(least));
  values->setRange(static_cast<double>(least) - room, static_cast<double>(most) + room);
  values->applyNiceNumbers();
}

}  // namespace

GrowthPicture::GrowthPicture(QWidget* parent) : QChartView(parent) {
  setRenderHint(QPainter::Antialiasing);
}

void GrowthPicture::Show(const GrowthAheadView& view) {
  view_ = view;
  setAccessibleDescription(QString::fromStdString(view_.Description()));
  Draw();
}

void GrowthPicture::Draw() {
  auto* drawn = new QChart;
  drawn->setBackgroundBrush(palette().color(QPalette::Base));
  drawn->setBackgroundRoundness(0);
  drawn->layout()->setContentsMargins(0, 0, 0, 0);
  // The last date stands half beyond the end of its axis.
  const int room = fontMetrics().averageCharWidth();
  drawn->setMargins({room, room, room + fontMetrics().horizontalAdvance("30 Mar") / 2, room});
  drawn->legend()->setLabelColor(palette().color(QPalette::Text));
  drawn->legend()->setFont(font());
  drawn->legend()->setMarkerShape(QLegend::MarkerShapeFromSeries);
  drawn->legend()->setAlignment(Qt::AlignTop);
  const Paper paper{*drawn, view_, palette(), font()};
  QAbstractAxis* days = AddDays(paper);
  AddSide(paper, {1, Qt::AlignLeft, view_.left}, days);
  AddSide(paper, {2, Qt::AlignRight, view_.right}, days);
  const std::unique_ptr<QChart> before(chart());
  setChart(drawn);
}

QSize GrowthPicture::minimumSizeHint() const {
  constexpr int kLines = 11;
  constexpr int kCharacters = 40;
  return {fontMetrics().averageCharWidth() * kCharacters, fontMetrics().height() * kLines};
}

QSize GrowthPicture::sizeHint() const { return minimumSizeHint() * 2; }

void GrowthPicture::changeEvent(QEvent* event) {
  QChartView::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) Draw();
}

}  // namespace repvolta
