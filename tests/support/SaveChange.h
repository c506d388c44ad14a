#pragma once

#include <functional>

#include "editing/Editor.h"

namespace repvolta {

/// Saves the workout in memory as a command does, and as one step.
inline void SaveChange(const Editor& editor) {
  editor.history->Change(
      {.name = "Change", .undone = {}, .done = {}},
      [&](const WorkoutAccess& workout) { SaveChangedWorkout(editor, workout); });
}

inline void SaveChangeAndShow(const Editor& editor, const std::function<void()>& show) {
  editor.history->Change({.name = "Change", .undone = {}, .done = {}},
                         [&](const WorkoutAccess& workout) { SaveAndShow(editor, workout, show); });
}

}  // namespace repvolta
