#pragma once

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QSettings>
#include <QTabWidget>
#include <QTest>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>

#include "app/Exercises.h"
#include "app/RecordFormat.h"
#include "app/WorkoutFiles.h"
#include "editing/LoadedWorkout.h"
#include "ui/RepvoltaForm.h"
#include "ui/RowList.h"

#include "fakes/FakeServices.h"
#include "fakes/FakeSound.h"
#include "fakes/RecordingProgress.h"
#include "fakes/ScriptedDialogs.h"
#include "support/Modal.h"
#include "support/ProgramFixture.h"
#include "support/SavedFiles.h"
#include "support/TemporaryFolder.h"

namespace repvolta {

/// The main window with a fresh program directory, scripted boxes and fake services. The workout
/// "Monday" is loaded and has no exercises. Today is day 39166, 25 March 2007, noon.
class FormFixture : public testing::Test {
 protected:
  FormFixture();
  ~FormFixture() override;

  void OpenForm();

  /// Makes empty workouts and lists them.
  void ListWorkouts(const std::vector<std::string>& names);

  /// Loads a listed workout without the window.
  void Load(const std::string& fileName);

  /// A new exercise of the loaded workout, saved and shown.
  ExerciseRecord& AddExercise(const std::string& name);

  void Show();

  void OpenTab(int index);

  template <class Control>
  Control& Get(const char* name) {
    return Find<Control>(*form, name);
  }

  /// Clicks at the left end of the button, where a check box has its box.
  void Click(const char* name);

  RowList& List(const char* name);
  void ClickRow(const char* list, int row);
  void DoubleClickRow(const char* list, int row);
  QPoint PlaceOf(const char* list, int row);
  std::vector<std::string> Rows(const char* list);
  std::string Text(const char* label);

  TemporaryFolder folder;
  ProgramState state;
  FakeClock clock{kToday + 0.5};
  ScriptedNumbers random;
  FakeProcesses processes;
  FakeSpeech speech;
  FakeSoundPlayer player;
  FakeBackgroundSpeech backgroundSpeech;
  ScriptedDialogs dialogs;
  RecordingProgress progress;
  RecordingPleaseWait pleaseWait;
  Program program{state, clock, random, processes, speech};
  std::string layoutFile;
  std::unique_ptr<RepvoltaForm> form;
};

}  // namespace repvolta
