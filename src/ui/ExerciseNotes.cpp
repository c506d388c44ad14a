#include "ui/ExerciseNotes.h"

#include "editing/ExerciseHints.h"

namespace repvolta {

ExerciseNotes::ExerciseNotes(const Controls& controls)
    : controls_(controls),
      randomMusicTip_(controls.randomMusicBox->toolTip()),
      addSetTip_(controls.addSet->toolTip()),
      addMusicTip_(controls.addMusic->toolTip()) {}

void ExerciseNotes::Show(const ExerciseRecord& exercise) {
  const QString isRandom = QString::fromStdString(RandomMusicText(exercise));
  controls_.randomMusicLabel->setText(isRandom);
  // The box itself may be heard with another value (quirk 45).
  controls_.randomMusicBox->setAccessibleDescription(randomMusicTip_ + " This exercise has " +
                                                     isRandom + ".");
  controls_.addSet->setToolTip(addSetTip_ + "\n" + QString::fromStdString(SetLimitText(exercise)));
  controls_.addMusic->setToolTip(addMusicTip_ + "\n" +
                                 QString::fromStdString(MusicLimitText(exercise)));
}

}  // namespace repvolta
