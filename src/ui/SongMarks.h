#pragma once

#include <QLabel>
#include <string>
#include <vector>

#include "platform/Answers.h"
#include "ui/RowList.h"

namespace repvolta {

/// Marks the songs in MusicList that are gone, and counts them in a label. The disks are asked in
/// the background: a silent one delays nothing but its own marks.
class SongMarks {
 public:
  /// `look` tells, in a thread of its own, whether a path can be reached.
  SongMarks(RowList* list, QLabel* label, Answers<bool>::Look look);

  /// Looks for the songs anew; the list has a row for each path.
  void Show(std::vector<std::string> paths);

 private:
  void Mark();

  RowList* list_;
  QLabel* label_;
  std::vector<std::string> paths_;
  Answers<bool> answers_;
};

}  // namespace repvolta
