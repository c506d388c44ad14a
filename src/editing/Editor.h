#pragma once

#include <functional>
#include <memory>
#include <string>

#include "app/ProgressLog.h"
#include "base/FileError.h"
#include "editing/Dialogs.h"
#include "editing/EditedProgram.h"
#include "editing/History.h"
#include "editing/MainScreen.h"
#include "editing/ProgressWindows.h"
#include "update/UpdateHost.h"

namespace repvolta {

class Listening;

enum class CheckBox { kUnticked, kTicked };

/// The state, services and screens that the editing commands use.
struct Editor {
  EditedProgram program;
  ProgressLog& log;
  UpdateHost& host;
  MainScreen& screen;
  Dialogs& dialogs;
  ProgressWindow& progress;
  PleaseWait& pleaseWait;
  /// Handles the windows' events during long work; throws UpdateStopped when the person ends the
  /// program.
  std::function<void()> runEvents;
  Listening* listening = nullptr;  // none: nothing can be listened to

  /// The only way to change a workout.
  std::unique_ptr<History> history = std::make_unique<History>(program);

  const ProgramState& State() const { return program.state; }
  const ExerciseRecord& Exercise() const { return State().Workout[State().CurrentExercise]; }
};

/// A change was made in memory but could not be saved; what() says both.
class UnsavedChange : public FileError {
 public:
  explicit UnsavedChange(const FileError& error);
  const char* what() const noexcept override { return text_.c_str(); }

 private:
  std::string text_;
};

// The last steps of the commands, see docs/decisions/0001-errors.md. Those that save throw
// UnsavedChange.

/// Before the first change of a day, the file is kept as it was.
void SaveChangedWorkout(const Editor& editor, const WorkoutAccess& workout);

/// Shows once in a run why no version of a workout was kept; "" shows nothing.
void TellUnkept(const Editor& editor, const std::string& why);

/// Also show the settings or options that were taken over because another program had saved them.
void SaveChangedSettings(const Editor& editor);
void SaveChangedOptions(const Editor& editor);

/// Refresh a tab. If the record cannot be shown as a whole, a message says why; nothing is thrown.
void ShowWorkout(const Editor& editor);
void ShowExercise(const Editor& editor);

/// Saves the workout and then calls `show`, even when the saving fails.
void SaveAndShow(const Editor& editor, const WorkoutAccess& workout,
                 const std::function<void()>& show);

/// The row to select after a removal: the one that took the removed row's place, or the last one.
int RowAfterRemoval(int removed, int rowsLeft);

/// Removes an item from a list of `count`: the later items and the unused slot after them move up,
/// and slot `count` becomes blank. Throws std::out_of_range when there are fewer slots.
template <class Item, std::size_t Size>
void RemoveItem(Slots<Item, Size>& items, int removed, int count) {
  constexpr int kSize = static_cast<int>(Size);
  for (int i = removed; i < count; ++i) items[i] = i + 1 < kSize ? items[i + 1] : Item{};
  if (count < kSize) items[count] = {};
}

}  // namespace repvolta
