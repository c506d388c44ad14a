#pragma once

#include <QLineF>
#include <QPaintDevice>
#include <QPainter>
#include <QRectF>
#include <vector>

#include "editing/WorkoutSheet.h"
#include "ui/SheetText.h"

namespace repvolta {

/// A part of a page that is not parted: what it draws lies at its own top left corner.
struct SheetPiece {
  struct PlacedText {
    QPointF place;
    SheetText text;
  };

  qreal height = 0;
  std::vector<PlacedText> texts;
  std::vector<QLineF> lines;
  std::vector<QRectF> boxes;
};

/// The pages of a workout's sheet. An exercise is on one page, unless it is longer than that.
class SheetPages {
 public:
  /// Laid out for the device, which must outlive this object.
  SheetPages(const WorkoutSheet& sheet, QPaintDevice& device);

  int Count() const { return static_cast<int>(pages_.size()); }

  /// Draws a page, counted from 0, in black.
  void Draw(QPainter& painter, int page) const;

 private:
  struct PlacedPiece {
    qreal top;
    SheetPiece piece;
  };

  void AddPage();
  void Add(SheetPiece piece);
  void AddExercise(const SheetExercise& exercise);
  bool HasRoomFor(qreal height) const { return top_ + height <= paper_.Height(); }

  SheetPaper paper_;
  std::vector<std::vector<PlacedPiece>> pages_;
  qreal head_ = 0;  // where the exercises begin on a page
  qreal top_ = 0;   // of the next piece
};

}  // namespace repvolta
