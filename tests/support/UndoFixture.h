#pragma once

#include <initializer_list>

#include "editing/LoadedWorkout.h"
#include "editing/SetValueEditing.h"
#include "editing/Undo.h"

#include "support/EditorFixture.h"

namespace repvolta {

/// The workouts Monday, with two exercises, and Friday, which is empty.
class UndoFixture : public EditorFixture {
 protected:
  UndoFixture() {
    ListEmptyWorkouts({"Friday"});
    ExerciseRecord& squat = AddNewExercise("Squat");
    AddSet(squat, 50, 10);
    AddSet(squat, 60, 8);
    squat.MusicFile[0] = "/music/a.mp3";
    squat.MusicFile[1] = "/music/b.mp3";
    squat.NumberOfMusicFiles = 2;
    AddNewExercise("Plank");
    LoadAndShowWorkout(editor);
    before = GetFile(kMonday);
  }

  void Answer(std::initializer_list<const char*> answers) {
    dialogs.answers.assign(answers.begin(), answers.end());
  }

  void Undo() { UndoAction_Trigger(editor); }
  void Redo() { RedoAction_Trigger(editor); }

  /// A change that saves, of the set in the first row.
  void ChangeWeight(const char* kilograms) {
    Answer({kilograms});
    SetList1_DblClick(editor, 0);
  }

  float Weight() { return Saved()[0].SetValue1[0]; }

  static constexpr const char* kMonday = "workouts/Monday.RPV";
  static constexpr const char* kFriday = "workouts/Friday.RPV";
  Bytes before;
};

}  // namespace repvolta
