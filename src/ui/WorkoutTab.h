#pragma once

#include <QWidget>
#include <memory>

#include "editing/Editor.h"
#include "ui/Handlers.h"
#include "ui/RowList.h"

namespace Ui {
class WorkoutTab;
}

namespace repvolta {

/// "Workout Setup/Exercise Selection": chooses the workout and lists its exercises.
class WorkoutTab : public QWidget {
  Q_OBJECT

 public:
  WorkoutTab(Editor& editor, Handlers& handlers);
  ~WorkoutTab() override;

  void ShowWorkoutNames();
  void SelectWorkout(int index);
  int SelectedWorkout() const;

  /// Throws std::overflow_error when the total time does not fit; everything else is shown then.
  void UpdateWorkoutScreen();

  int SelectedExercise() const;
  void SelectExercise(int row);

  /// The CurrentExercise of the last UpdateWorkoutScreen.
  int ShownExercise() const { return shownExercise_; }

  /// Keeps the selected exercise while the workout is loaded again.
  KeptRow KeepSelection();

  /// Shows or hides the note that the workout's file had a wrong size.
  void ShowOddSize();

  /// Enables the controls that edit the workout. Those that choose or create one are always
  /// enabled.
  void EnableEditing(bool enabled);

 Q_SIGNALS:
  void ExerciseOpened();

 private:
  void ConnectWorkouts();
  void ConnectExercises();
  void ConnectLists();
  void ChooseWorkout();
  void ExerciseList_Click(int row);
  void ShowNameRemarks();

  Editor& editor_;
  Handlers& handlers_;
  std::unique_ptr<Ui::WorkoutTab> ui_;
  int shownExercise_ = 0;
  bool choicePending_ = false;
};

}  // namespace repvolta
