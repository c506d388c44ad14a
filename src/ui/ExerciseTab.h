#pragma once

#include <QAbstractButton>
#include <QWidget>
#include <array>
#include <memory>

#include "editing/Editor.h"
#include "ui/Handlers.h"
#include "ui/RowList.h"

namespace Ui {
class ExerciseTab;
}

namespace repvolta {

class ListenButtons;
class Listening;
class ExerciseNotes;
class ExerciseSteps;
class SetTable;
class SongMarks;

/// "Exercise Setup": the sets and the music of the current exercise.
class ExerciseTab : public QWidget {
  Q_OBJECT

 public:
  ExerciseTab(Editor& editor, Handlers& handlers);
  ~ExerciseTab() override;

  /// Without an exercise the tab is left unchanged. Throws std::out_of_range for a record that
  /// cannot be shown, after showing everything before the fault.
  void UpdateExerciseScreen();

  /// Until this call nothing can be listened to. `window` gets the keys.
  void OfferListening(Listening& listening, QWidget* window);

  enum class Content { kExercise, kNoExercise };
  void ShowContent(Content content);

  /// Enables the buttons that lead to the exercises beside the current one.
  void ShowSteps();

  /// Makes the box "Random Music" show the choice of the exercise; otherwise it never does.
  void FollowRandomMusic();

  void SelectSet(int row);
  void SelectMusic(int row);

  /// Keeps the selected music file while the workout is loaded again; the set selection needs no
  /// help.
  KeptRow KeepSelection();

 private:
  void ConnectSetButtons();
  void ConnectSetLists();
  void ConnectChoices();
  void ConnectMusic();
  void AddHelpers();
  void ChooseRandomMusic(bool chosen);
  void ShowExercise(const ExerciseRecord& exercise);
  void ShowMusic(const ExerciseRecord& exercise);
  void ShowTarget(const ExerciseRecord& exercise);
  void ShowFieldNames(const ExerciseRecord& exercise);
  void ShowChoices(const ExerciseRecord& exercise);
  void ShowSets(const ExerciseRecord& exercise);
  int SelectedSet() const;
  int SelectedMusic() const;
  bool TakesMusic() const;

  Editor& editor_;
  Handlers& handlers_;
  std::unique_ptr<Ui::ExerciseTab> ui_;
  SetTable* sets_;
  ListenButtons* listen_;
  std::unique_ptr<ExerciseNotes> notes_;
  std::unique_ptr<ExerciseSteps> steps_;
  std::unique_ptr<SongMarks> songMarks_;
  std::array<QAbstractButton*, 4> setButtons_;
  std::array<QAbstractButton*, 2> unitsSelections_;
};

}  // namespace repvolta
