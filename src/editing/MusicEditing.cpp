#include "editing/MusicEditing.h"

#include <stdexcept>
#include <utility>

#include "base/FileNames.h"
#include "editing/AnswerLines.h"
#include "editing/Answers.h"
#include "editing/FindMusic.h"
#include "editing/MusicAddition.h"
#include "editing/Undo.h"

namespace repvolta {
namespace {

constexpr auto kMusic = StepPlace::List::kMusic;

void KeepAndSelect(const Editor& editor, const WorkoutAccess& workout, int row) {
  SaveAndShow(editor, workout, [&] {
    ShowExercise(editor);
    editor.screen.SelectMusic(row);
  });
}

std::string NameOfSong(const ExerciseRecord& exercise, int row) {
  return FileName(exercise.MusicFile[row].Trimmed());
}

/// Adds what was found and tells the rest; the workout is saved once.
void AddAndTell(const Editor& editor, const WorkoutAccess& workout, const FoundMusic& found) {
  const MusicAddition addition = AddFoundMusic(workout.State(), found);
  const auto tell = [&] {
    const std::string text = NotAddedText(addition);
    if (!text.empty()) editor.dialogs.ShowMessage(text);
  };
  if (addition.added.empty()) {
    tell();
    return;
  }
  SaveAndShow(editor, workout, [&] {
    ShowExercise(editor);
    editor.screen.SelectMusic(editor.Exercise().NumberOfMusicFiles - 1);
    tell();
  });
}

/// "Add Music File 'Song.mp3'".
std::string NameOfAddition(const std::vector<std::string>& songs) {
  return songs.size() == 1 ? StepName("Add Music File", FileName(songs.front()))
                           : "Add Music Files";
}

/// As one step.
void AddAll(const Editor& editor, const FoundMusic& found) {
  const int count = editor.Exercise().NumberOfMusicFiles;
  editor.history->Change(StepOfRow(editor, NameOfAddition(found.songs), kMusic, count, count),
                         [&](const WorkoutAccess& workout) { AddAndTell(editor, workout, found); });
}

}  // namespace

void AddMusicFileButton_Click(Editor& editor) {
  const ProgramState& state = editor.State();
  const std::int16_t count = editor.Exercise().NumberOfMusicFiles;
  if (count >= MaxMusicFiles) {
    editor.dialogs.ShowMessage("Cannot add any more music files");
    return;
  }
  const std::vector<std::string> paths =
      editor.dialogs.SelectMusicFiles(state.Settings.MusicPath.Trimmed());
  if (paths.empty()) return;
  MakeProgramDirectoryCurrent(state);
  if (paths.size() > 1) {
    AddAll(editor, {.songs = InNameOrder(paths), .noMusic = {}, .failures = {}});
    return;
  }
  editor.history->Change(StepOfRow(editor, NameOfAddition(paths), kMusic, count, count),
                         [&](const WorkoutAccess& workout) {
                           AddMusicFile(workout.State(), paths.front());
                           KeepAndSelect(editor, workout, count);
                         });
}

void MusicList_DragDrop(Editor& editor, const std::vector<std::string>& paths) {
  AddAll(editor, FindMusic(paths, editor.runEvents));
}

void MoveMusicFileUpListButton_Click(Editor& editor, int row) {
  const ExerciseRecord& exercise = editor.Exercise();
  if (exercise.NumberOfMusicFiles == 0 || row <= 0) return;
  if (!editor.dialogs.Confirm("Are you SURE you want to move the music file up the list?:\r" +
                                  exercise.MusicFile[row].Trimmed(),
                              "Move Music File")) {
    return;
  }
  const std::string name = StepName("Move Music File", NameOfSong(exercise, row));
  editor.history->Change(StepOfRow(editor, name, kMusic, row, row - 1),
                         [&](const WorkoutAccess& workout) {
                           auto& files = workout.Exercise().MusicFile;
                           // The play times stay where they are (quirk 97).
                           std::swap(files[row - 1], files[row]);
                           KeepAndSelect(editor, workout, row - 1);
                         });
}

void RemoveMusicFileButton_Click(Editor& editor, int row) {
  const std::int16_t count = editor.Exercise().NumberOfMusicFiles;
  if (count == 0 || row < 0) return;
  if (!editor.dialogs.Confirm("Are you SURE you want to remove the music file:\r" +
                                  editor.Exercise().MusicFile[row].Trimmed(),
                              "Remove Music File")) {
    return;
  }
  const int next = RowAfterRemoval(row, count - 1);
  const std::string name = StepName("Remove Music File", NameOfSong(editor.Exercise(), row));
  editor.history->Change(StepOfRow(editor, name, kMusic, row, next),
                         [&](const WorkoutAccess& workout) {
                           ChangeMusic(workout.State(), [&](ExerciseRecord& exercise) {
                             // The play times stay where they are, so the total can count the
                             // removed file and leave out the last one (quirk 98).
                             RemoveItem(exercise.MusicFile, row, count);
                             --exercise.NumberOfMusicFiles;
                           });
                           KeepAndSelect(editor, workout, next);
                         });
}

void RandomMusicCheckBox_Click(Editor& editor, CheckBox box) {
  if (editor.State().ScreenUpdating) return;
  editor.history->Change(
      StepOfExercise(editor, "Change Random Music"), [&](const WorkoutAccess& workout) {
        workout.Exercise().RandomMusic = box == CheckBox::kTicked ? kTrue : kFalse;
        SaveChangedWorkout(editor, workout);
      });
}

void SetExerciseTimeButton_Click(Editor& editor) {
  constexpr const char* kTitle = "Set Target Exercise Time";
  const std::string answer = editor.dialogs.AskText("Enter the Target Exercise time in minutes",
                                                    kTitle, TargetTimeHelp(editor.Exercise()));
  std::optional<std::int16_t> seconds;
  try {
    seconds = TargetTimeOf(answer);
  } catch (const std::overflow_error& error) {
    editor.dialogs.ShowMessage(error.what(), kTitle);
  }
  if (!seconds) return;
  editor.history->Change(StepOfExercise(editor, kTitle), [&](const WorkoutAccess& workout) {
    workout.Exercise().TargetExerciseTime = *seconds;
    SaveAndShow(editor, workout, [&] { ShowExercise(editor); });
  });
}

}  // namespace repvolta
