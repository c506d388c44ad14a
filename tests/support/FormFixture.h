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
#include "fakes/ScriptedDialogs.h"
#include "support/Modal.h"
#include "support/ProgramFixture.h"
#include "support/SavedFiles.h"
#include "support/TemporaryFolder.h"

namespace repvolta {

/// The main window over a program directory of its own, with scripted boxes and fake services. The
/// workout "Monday" is loaded and has no exercises. Today is day 39166, 25 March 2007, noon.
class FormFixture : public testing::Test {
 protected:
  FormFixture() {
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                       QString::fromStdString(folder.Path() + "desktop"));
    state.ProgramDirectory = folder.Path();
    state.Settings.DefaultExerciseTime = 5;
    state.Settings.OutputPath = folder.Path() + "player";
    state.Settings.MusicPath = folder.Path() + "music";
    std::filesystem::create_directory("player");
    std::filesystem::create_directory("music");
    OpenForm();
    ListWorkouts({"Monday"});
    Load("Monday.RPV");
  }

  void OpenForm() {
    form.reset();
    form = std::make_unique<RepvoltaForm>(program, dialogs, progress, pleaseWait, layoutFile);
    form->show();
  }

  /// Makes empty workouts and lists them.
  void ListWorkouts(const std::vector<std::string>& names) {
    for (const std::string& name : names) {
      PutFile("workouts/" + name + ".RPV", EncodeWorkout({}));
    }
    repvolta::ListWorkouts(form->GetEditor());
  }

  /// Loads a listed workout without the window.
  void Load(const std::string& fileName) {
    const auto& names = state.WorkoutNames;
    form->SelectWorkout(
        static_cast<int>(std::find(names.begin(), names.end(), fileName) - names.begin()));
    state.WorkoutFileName = fileName;
    LoadAndShowWorkout(form->GetEditor());
    form->EnableWorkoutControls();
  }

  /// A new exercise of the loaded workout, saved and shown.
  ExerciseRecord& AddExercise(const std::string& name) {
    ExerciseRecord& exercise = state.Workout[state.NumberOfExercises++];
    InitialiseExercise(exercise, state.Settings, clock.Today());
    exercise.ExerciseName = name;
    Show();
    return exercise;
  }

  void Show() {
    SaveWorkout(state);
    form->UpdateWorkoutScreen();
    form->UpdateExerciseScreen();
  }

  void OpenTab(int index) { Get<QTabWidget>("SSTab1").setCurrentIndex(index); }

  template <class Control>
  Control& Get(const char* name) {
    return Find<Control>(*form, name);
  }

  /// At the beginning of the button, where a check box has its box.
  void Click(const char* name) {
    auto& button = Get<QAbstractButton>(name);
    QTest::mouseClick(&button, Qt::LeftButton, {}, {button.height() / 2, button.height() / 2});
  }

  RowList& List(const char* name) { return Get<RowList>(name); }

  void ClickRow(const char* list, int row) {
    QTest::mouseClick(List(list).viewport(), Qt::LeftButton, {}, PlaceOf(list, row));
  }

  void DoubleClickRow(const char* list, int row) {
    ClickRow(list, row);
    QTest::mouseDClick(List(list).viewport(), Qt::LeftButton, {}, PlaceOf(list, row));
  }

  QPoint PlaceOf(const char* list, int row) {
    return List(list).visualItemRect(List(list).item(row)).center();
  }

  std::vector<std::string> Rows(const char* list) {
    std::vector<std::string> rows;
    for (int i = 0; i < List(list).count(); ++i) {
      rows.push_back(List(list).item(i)->text().toStdString());
    }
    return rows;
  }

  std::string Text(const char* label) { return Get<QLabel>(label).text().toStdString(); }

  TemporaryFolder folder;
  ProgramState state;
  FakeClock clock{kToday + 0.5};
  ScriptedNumbers random;
  FakeProcesses processes;
  FakeSpeech speech;
  ScriptedDialogs dialogs;
  RecordingProgress progress;
  RecordingPleaseWait pleaseWait;
  Program program{state, clock, random, processes, speech};
  std::string layoutFile;
  std::unique_ptr<RepvoltaForm> form;
};

}  // namespace repvolta
