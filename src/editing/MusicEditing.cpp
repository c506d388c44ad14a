#include "editing/MusicEditing.h"

#include <stdexcept>
#include <utility>

#include "editing/AnswerLines.h"
#include "editing/Answers.h"
#include "editing/FindMusic.h"
#include "editing/MusicAddition.h"

namespace repvolta {
namespace {

void Keep(const Editor& editor) {
  SaveAndShow(editor, [&] { ShowExercise(editor); });
}

void KeepAndSelect(const Editor& editor, int row) {
  SaveAndShow(editor, [&] {
    ShowExercise(editor);
    editor.screen.SelectMusic(row);
  });
}

/// Adds what was found and tells the rest; the workout is saved once.
void AddAndTell(Editor& editor, const FoundMusic& found) {
  const MusicAddition addition = AddFoundMusic(editor.State(), found);
  const auto tell = [&] {
    const std::string text = NotAddedText(addition);
    if (!text.empty()) editor.dialogs.ShowMessage(text);
  };
  if (addition.added.empty()) {
    tell();
    return;
  }
  SaveAndShow(editor, [&] {
    ShowExercise(editor);
    editor.screen.SelectMusic(editor.Exercise().NumberOfMusicFiles - 1);
    tell();
  });
}

}  // namespace

void AddMusicFileButton_Click(Editor& editor) {
  ProgramState& state = editor.State();
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
    AddAndTell(editor, {.songs = InNameOrder(paths), .noMusic = {}, .failures = {}});
    return;
  }
  AddMusicFile(state, paths.front());
  KeepAndSelect(editor, count);
}

void MusicList_DragDrop(Editor& editor, const std::vector<std::string>& paths) {
  AddAndTell(editor, FindMusic(paths, editor.runEvents));
}

void MoveMusicFileUpListButton_Click(Editor& editor, int row) {
  ExerciseRecord& exercise = editor.Exercise();
  if (exercise.NumberOfMusicFiles == 0 || row <= 0) return;
  if (!editor.dialogs.Confirm("Are you SURE you want to move the music file up the list?:\r" +
                                  exercise.MusicFile[row].Trimmed(),
                              "Move Music File")) {
    return;
  }
  // The play times stay where they are (quirk 97).
  std::swap(exercise.MusicFile[row - 1], exercise.MusicFile[row]);
  KeepAndSelect(editor, row - 1);
}

void RemoveMusicFileButton_Click(Editor& editor, int row) {
  const std::int16_t count = editor.Exercise().NumberOfMusicFiles;
  if (count == 0 || row < 0) return;
  if (!editor.dialogs.Confirm("Are you SURE you want to remove the music file:\r" +
                                  editor.Exercise().MusicFile[row].Trimmed(),
                              "Remove Music File")) {
    return;
  }
  ChangeMusic(editor.State(), [&](ExerciseRecord& exercise) {
    // The play times stay where they are, so the total can count the removed file and leave out the
    // last one (quirk 98).
    RemoveItem(exercise.MusicFile, row, count);
    --exercise.NumberOfMusicFiles;
  });
  KeepAndSelect(editor, RowAfterRemoval(row, count - 1));
}

void RandomMusicCheckBox_Click(Editor& editor, CheckBox box) {
  if (editor.State().ScreenUpdating) return;
  editor.Exercise().RandomMusic = box == CheckBox::kTicked ? kTrue : kFalse;
  SaveChangedWorkout(editor);
}

void SetExerciseTimeButton_Click(Editor& editor) {
  constexpr const char* kTitle = "Set Target Exercise Time";
  const std::string answer = editor.dialogs.AskText("Enter the Target Exercise time in minutes",
                                                    kTitle, TargetTimeHelp(editor.Exercise()));
  try {
    const std::optional<std::int16_t> seconds = TargetTimeOf(answer);
    if (!seconds) return;
    editor.Exercise().TargetExerciseTime = *seconds;
  } catch (const std::overflow_error& error) {
    editor.dialogs.ShowMessage(error.what(), kTitle);
    return;
  }
  Keep(editor);
}

}  // namespace repvolta
