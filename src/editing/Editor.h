#pragma once

#include <functional>
#include <string>

#include "app/ProgressLog.h"
#include "base/FileError.h"
#include "editing/Dialogs.h"
#include "editing/MainScreen.h"
#include "editing/ProgressWindows.h"
#include "update/Program.h"
#include "update/UpdateHost.h"

namespace repvolta {

enum class CheckBox { kUnticked, kTicked };

/// What the editing commands work with.
struct Editor {
  Program& program;
  ProgressLog& log;
  UpdateHost& host;
  MainScreen& screen;
  Dialogs& dialogs;
  ProgressWindow& progress;
  PleaseWait& pleaseWait;
  /// Lets the windows live during long work; throws UpdateStopped when the person ends the program.
  std::function<void()> runEvents;

  ProgramState& State() const { return program.state; }
  ExerciseRecord& Exercise() const { return State().Workout[State().CurrentExercise]; }
};

/// A change that is in memory, and could not be saved. The text says so.
class UnsavedChange : public FileError {
 public:
  explicit UnsavedChange(const FileError& error);
  const char* what() const noexcept override { return text_.c_str(); }

 private:
  std::string text_;
};

// What the commands end with, see docs/decisions/0001-errors.md. All that save throw UnsavedChange.

void SaveChangedWorkout(const Editor& editor);

/// Shows also what was taken over from another program that had saved settings meanwhile.
void SaveChangedSettings(const Editor& editor);

/// Refresh a tab. What keeps the record from being shown as a whole is told, and nothing is thrown.
void ShowWorkout(const Editor& editor);
void ShowExercise(const Editor& editor);

/// Saves the workout and then calls `show`, also when it could not be saved.
void SaveAndShow(const Editor& editor, const std::function<void()>& show);

/// The row that is selected after a row was removed: the one that took its place.
int RowAfterRemoval(int removed, int rowsLeft);

/// Takes the item of a list of `count` out: those behind it move up, with the unused slot behind
/// the last, which becomes blank. Throws std::out_of_range when there are not so many slots.
template <class Item, std::size_t Size>
void RemoveItem(Slots<Item, Size>& items, int removed, int count) {
  constexpr int kSize = static_cast<int>(Size);
  for (int i = removed; i < count; ++i) items[i] = i + 1 < kSize ? items[i + 1] : Item{};
  if (count < kSize) items[count] = {};
}

}  // namespace repvolta
