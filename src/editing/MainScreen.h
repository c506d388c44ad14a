#pragma once

#include <string>
#include <vector>

namespace repvolta {

enum class WindowTab { kWorkout, kExercise, kSettings };

/// The main window as the start-up and the commands see it. A change that these calls make to a
/// control never counts as the person's choice.
class MainScreen {
 public:
  virtual ~MainScreen() = default;

  /// Refills WorkoutDropBox from the state's WorkoutNames and selects nothing.
  virtual void ShowWorkoutNames() = 0;

  virtual void UpdateWorkoutScreen() = 0;
  virtual void UpdateExerciseScreen() = 0;
  virtual void UpdateSettingsScreen() = 0;

  /// Shows MusicPath and OutputPath of the settings.
  virtual void ShowPaths() = 0;

  /// Shows DefaultExerciseTime of the settings.
  virtual void ShowDefaultExerciseTime() = 0;

  /// Selects an entry of WorkoutDropBox without loading it; -1 selects none.
  virtual void SelectWorkout(int index) = 0;

  /// The selected entry of WorkoutDropBox, or -1.
  virtual int SelectedWorkout() const = 0;

  /// Enables the controls that edit a workout only while WorkoutFileName names one.
  virtual void EnableWorkoutControls() = 0;

  virtual void ShowTab(WindowTab tab) = 0;

  /// Select a row of the set lists or of MusicList; a row that does not exist selects none.
  virtual void SelectSet(int row) = 0;
  virtual void SelectMusic(int row) = 0;

  /// Fills VoiceCB and selects VoiceIndex.
  virtual void ShowVoices(const std::vector<std::string>& names) = 0;

  /// Fills AudioOutputCB and selects its first entry. Without outputs the box says so and is
  /// disabled.
  virtual void ShowAudioOutputs(const std::vector<std::string>& names) = 0;

  /// Fills FormatCB with all sound formats and selects the one of the state's Voice.
  virtual void ShowFormats() = 0;
};

}  // namespace repvolta
