#pragma once

#include <string>
#include <vector>

#include "app/ProgramState.h"
#include "editing/MainScreen.h"
#include "editing/ScreenTexts.h"
#include "platform/Clock.h"

namespace repvolta {

/// A list with at most one selected row.
struct ListModel {
  /// A row that does not exist selects none.
  void Select(int row);

  std::vector<std::string> rows;
  int selected = -1;  // -1: none
};

/// Stands for the main window: keeps what the commands show in it, without a window.
class ModelScreen : public MainScreen {
 public:
  ModelScreen(const ProgramState& state, const Clock& clock) : state_(state), clock_(clock) {}

  void ShowWorkoutNames() override;
  void UpdateWorkoutScreen() override;
  void UpdateExerciseScreen() override;
  void UpdateSettingsScreen() override;
  void ShowPaths() override;
  void ShowDefaultExerciseTime() override;
  void SelectWorkout(int index) override { workouts.Select(index); }
  int SelectedWorkout() const override { return workouts.selected; }
  void EnableWorkoutControls() override;
  void ShowTab(WindowTab shown) override { tab = shown; }
  void SelectSet(int row) override;
  void SelectMusic(int row) override { music.Select(row); }
  void ShowVoices(const std::vector<std::string>& /*names*/) override {}
  void ShowAudioOutputs(const std::vector<std::string>& /*names*/) override {}
  void ShowFormats() override {}

  // The workout tab.
  ListModel workouts;
  ListModel exercises;
  std::vector<std::string> summaries;
  std::string totalMusicTime;
  bool workoutCanBeEdited = false;

  // The exercise tab.
  std::string exerciseName;
  FieldNames fieldNames;
  SetColumns sets;
  int selectedSet = -1;
  ListModel music;
  std::int16_t targetTime = 0;
  std::int16_t musicTime = 0;

  /// The settings as the settings tab shows them.
  SettingsRecord settings;
  std::int32_t randomMusicFiles = 0;

  WindowTab tab = WindowTab::kWorkout;

 private:
  const ProgramState& state_;
  const Clock& clock_;
};

}  // namespace repvolta
