#include "ui/SheetPages.h"

#include <QPen>
#include <algorithm>
#include <array>
#include <utility>

namespace repvolta {
namespace {

constexpr int kName = 20;  // points
constexpr int kValue = 22;
constexpr int kNumber = 14;
constexpr int kSmall = 9;

constexpr qreal kSmallGap = 1;  // millimetres
constexpr qreal kGap = 2;
constexpr qreal kBetweenExercises = 7;
constexpr qreal kRow = 12;
constexpr qreal kBox = 8;
constexpr qreal kLine = 0.25;

/// The columns, as parts of the width: number, both values, box, growth, notes.
constexpr std::array<qreal, 6> kColumns = {0.07, 0.18, 0.18, 0.08, 0.33, 0.16};

qreal ColumnBegin(const SheetPaper& paper, std::size_t column) {
  qreal begin = 0;
  for (std::size_t i = 0; i < column; ++i) begin += kColumns.at(i);
  return begin * paper.Width();
}

qreal ColumnWidth(const SheetPaper& paper, std::size_t column) {
  return kColumns.at(column) * paper.Width() - paper.Millimetres(kGap);
}

void Put(SheetPiece& piece, const QPointF& place, SheetText text) {
  piece.height = std::max(piece.height, place.y() + text.Height());
  piece.texts.push_back({place, std::move(text)});
}

void Underline(SheetPiece& piece, const SheetPaper& paper) {
  piece.lines.emplace_back(0, piece.height, paper.Width(), piece.height);
}

/// Ends at the right margin.
void PutAtEnd(SheetPiece& piece, const SheetPaper& paper, qreal top, SheetText text) {
  const qreal left = paper.Width() - text.Width();
  Put(piece, {left, top}, std::move(text));
}

SheetPiece Header(const SheetPaper& paper, const WorkoutSheet& sheet, const std::string& page) {
  constexpr qreal kNamePart = 0.7;
  const qreal right = (1 - kNamePart) * paper.Width() - paper.Millimetres(kGap);
  SheetPiece piece;
  Put(piece, {0, 0},
      SheetText(paper, sheet.name, paper.Font(kNumber, QFont::Bold), kNamePart * paper.Width()));
  SheetText date(paper, sheet.date, paper.Font(kSmall), right);
  const qreal below = date.Height();
  PutAtEnd(piece, paper, 0, std::move(date));
  PutAtEnd(piece, paper, below, SheetText(paper, page, paper.Font(kSmall), right));
  piece.height += paper.Millimetres(kGap);
  Underline(piece, paper);
  piece.height += paper.Millimetres(kBetweenExercises);
  return piece;
}

void PutColumnNames(SheetPiece& piece, const SheetPaper& paper, const SheetExercise& exercise) {
  const qreal top = piece.height + paper.Millimetres(kGap);
  const std::array<std::string, kColumns.size()> names = {
      "Set", exercise.firstName, exercise.secondName, "Done", "Grows next", "Notes"};
  for (std::size_t i = 0; i < names.size(); ++i) {
    Put(piece, {ColumnBegin(paper, i), top},
        SheetText(paper, names.at(i), paper.Font(kSmall), ColumnWidth(paper, i)));
  }
}

SheetPiece Title(const SheetPaper& paper, const SheetExercise& exercise, const std::string& name) {
  SheetPiece piece;
  Put(piece, {0, 0}, SheetText(paper, name, paper.Font(kName, QFont::Bold), paper.Width()));
  Put(piece, {0, piece.height},
      SheetText(paper, exercise.music, paper.Font(kSmall), paper.Width()));
  PutColumnNames(piece, paper, exercise);
  piece.height += paper.Millimetres(kSmallGap);
  Underline(piece, paper);
  return piece;
}

/// The texts of a column below each other, in the middle of the row.
void PutInRow(SheetPiece& row, qreal left, std::vector<SheetText> texts) {
  qreal height = 0;
  for (const SheetText& text : texts) height += text.Height();
  qreal top = (row.height - height) / 2;
  for (SheetText& text : texts) {
    const qreal next = top + text.Height();
    row.texts.push_back({{left, top}, std::move(text)});
    top = next;
  }
}

SheetPiece Row(const SheetPaper& paper, const SheetSet& set) {
  std::array<std::vector<SheetText>, kColumns.size()> columns;
  const auto add = [&](std::size_t column, const std::string& text, const QFont& font) {
    const qreal width = ColumnWidth(paper, column);
    columns.at(column).emplace_back(paper, text, font, width);
  };
  const QFont large = paper.Font(kValue, QFont::Bold);
  add(0, set.number, paper.Font(kNumber));
  add(1, set.first, FontThatFits(paper, set.first, large, ColumnWidth(paper, 1)));
  add(2, set.second, FontThatFits(paper, set.second, large, ColumnWidth(paper, 2)));
  for (const std::string& growth : set.growth) add(4, growth, paper.Font(kSmall));

  SheetPiece row;
  row.height = paper.Millimetres(kRow);
  for (const auto& texts : columns) {
    qreal height = paper.Millimetres(kGap);
    for (const SheetText& text : texts) height += text.Height();
    row.height = std::max(row.height, height);
  }
  for (std::size_t i = 0; i < columns.size(); ++i) {
    PutInRow(row, ColumnBegin(paper, i), std::move(columns.at(i)));
  }
  const qreal box = paper.Millimetres(kBox);
  row.boxes.emplace_back(ColumnBegin(paper, 3), (row.height - box) / 2, box, box);
  Underline(row, paper);
  return row;
}

std::vector<SheetPiece> Rows(const SheetPaper& paper, const SheetExercise& exercise) {
  std::vector<SheetPiece> rows;
  rows.reserve(exercise.sets.size());
  for (const SheetSet& set : exercise.sets) rows.push_back(Row(paper, set));
  return rows;
}

void DrawPiece(QPainter& painter, const SheetPiece& piece) {
  for (const auto& [place, text] : piece.texts) text.Draw(painter, place);
  for (const QLineF& line : piece.lines) painter.drawLine(line);
  for (const QRectF& box : piece.boxes) painter.drawRect(box);
}

}  // namespace

SheetPages::SheetPages(const WorkoutSheet& sheet, QPaintDevice& device) : paper_(device) {
  head_ = Header(paper_, sheet, "").height;
  AddPage();
  for (const SheetExercise& exercise : sheet.exercises) AddExercise(exercise);
  for (std::size_t i = 0; i < pages_.size(); ++i) {
    const std::string number =
        "Page " + std::to_string(i + 1) + " of " + std::to_string(pages_.size());
    pages_[i].push_back({0, Header(paper_, sheet, number)});
  }
}

void SheetPages::AddPage() {
  pages_.emplace_back();
  top_ = head_;
}

void SheetPages::Add(SheetPiece piece) {
  const qreal height = piece.height;
  pages_.back().push_back({top_, std::move(piece)});
  top_ += height;
}

void SheetPages::AddExercise(const SheetExercise& exercise) {
  SheetPiece title = Title(paper_, exercise, exercise.name);
  std::vector<SheetPiece> rows = Rows(paper_, exercise);
  qreal height = title.height;
  for (const SheetPiece& row : rows) height += row.height;
  if (!HasRoomFor(height) && top_ > head_) AddPage();
  Add(std::move(title));
  for (SheetPiece& row : rows) {
    if (!HasRoomFor(row.height)) {
      AddPage();
      Add(Title(paper_, exercise, exercise.name + " (continued)"));
    }
    Add(std::move(row));
  }
  top_ += paper_.Millimetres(kBetweenExercises);
}

void SheetPages::Draw(QPainter& painter, int page) const {
  painter.setPen(QPen(Qt::black, paper_.Millimetres(kLine)));
  painter.setBrush(Qt::NoBrush);
  for (const auto& [top, piece] : pages_.at(static_cast<std::size_t>(page))) {
    painter.save();
    painter.translate(0, top);
    DrawPiece(painter, piece);
    painter.restore();
  }
}

}  // namespace repvolta
