#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "editing/Editor.h"

#include "fakes/ModelScreen.h"
#include "fakes/RecordingProgress.h"
#include "fakes/ScriptedDialogs.h"
#include "support/ProgramFixture.h"
#include "support/SavedFiles.h"

namespace repvolta {

/// The editing commands without a window: a fresh program directory, scripted boxes, and a screen
/// that keeps what it shows. The workout "Monday" is loaded and has no exercises. Today is day
/// 39166, 25 March 2007, noon.
class EditorFixture : public ProgramFixture {
 protected:
  EditorFixture();

  /// Makes empty workouts, lists them and selects none.
  void ListEmptyWorkouts(const std::vector<std::string>& names);

  /// A new exercise of the loaded workout, saved and shown.
  ExerciseRecord& AddNewExercise(const std::string& name);

  /// Saves the workout in memory and shows it.
  void Show();

  ScriptedDialogs dialogs;
  RecordingProgress progress;
  RecordingPleaseWait pleaseWait;
  ModelScreen screen{state, clock};
  Editor editor{.program = program,
                .log = run,
                .host = run,
                .screen = screen,
                .dialogs = dialogs,
                .progress = progress,
                .pleaseWait = pleaseWait,
                .runEvents = [] {}};
};

}  // namespace repvolta
