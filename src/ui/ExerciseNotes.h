#pragma once

#include <QAbstractButton>
#include <QLabel>
#include <QString>

#include "app/Records.h"

namespace repvolta {

/// What the exercise tab says of the exercise beside its own controls: whether it has random music,
/// and in two tool tips how much can still be added.
class ExerciseNotes {
 public:
  struct Controls {
    QAbstractButton* randomMusicBox;
    QLabel* randomMusicLabel;
    QAbstractButton* addSet;
    QAbstractButton* addMusic;
  };

  explicit ExerciseNotes(const Controls& controls);

  void Show(const ExerciseRecord& exercise);

 private:
  Controls controls_;
  QString randomMusicTip_;
  QString addSetTip_;
  QString addMusicTip_;
};

}  // namespace repvolta
