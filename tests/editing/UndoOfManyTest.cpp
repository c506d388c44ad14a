#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <random>

#include "app/RecordFormat.h"
#include "app/WorkoutFiles.h"
#include "editing/ExerciseEditing.h"
#include "editing/LoadedWorkout.h"
#include "editing/MusicEditing.h"
#include "editing/SetEditing.h"
#include "editing/SetValueEditing.h"
#include "editing/SettingsEditing.h"
#include "editing/Undo.h"
#include "editing/UpdateCommands.h"
#include "editing/WorkoutCopies.h"
#include "editing/WorkoutEditing.h"

#include "support/EditorFixture.h"
#include "support/FullDisk.h"
#include "support/SongBytes.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

constexpr int kCommands = 200;

using Files = std::map<std::string, Bytes>;

/// The names of the files that differ.
std::string Difference(const Files& a, const Files& b) {
  std::string names;
  for (const auto& [name, content] : a) {
    if (!b.contains(name) || b.at(name) != content) names += name + " ";
  }
  for (const auto& [name, content] : b) {
    if (!a.contains(name)) names += name + " ";
  }
  return names;
}

/// Sequences of commands that a person might give, over several workouts, some of odd sizes.
class ManyCommands : public EditorFixture, public testing::WithParamInterface<unsigned> {
 protected:
  ManyCommands() : numbers_(GetParam()) {
    for (const char* song : {"a", "b", "c"}) {
      PutFile("music/" + std::string(song) + ".mp3", SongBytes(5));
    }
    PutOdd("workouts/Friday", kWorkoutFileSize + 100);
    PutOdd("workouts/Sunday", 3 * kExerciseRecordSize + 17);
    // What the window deletes lies here (quirk 105).
    for (const char* name : {"Monday", "Friday", "Legs"}) PutOdd(name, 77);
    ListWorkouts(editor);
    LoadAndShowWorkout(editor);
  }

  static Files All() {
    Files files;
    for (const char* directory : {".", "workouts"}) {
      for (const auto& entry : fs::directory_iterator(directory)) {
        if (entry.path().extension() == ".RPV") files[entry.path()] = GetFile(entry.path());
      }
    }
    return files;
  }

  int Any(int count) { return static_cast<int>(numbers_() % static_cast<unsigned>(count)); }

  /// One command with any answers; one of twenty on a full disk.
  void GiveAny() {
    clock.Set(clock.Now() + Any(2));
    if (state.WorkoutFileName.empty()) Choose();
    dialogs.answers.clear();
    const bool isFull = Any(20) == 0;
    const Command command = AnyCommand();
    try {
      if (isFull) {
        const FullDisk full(1000);
        (this->*command)();
      } else {
        (this->*command)();
      }
    } catch (const std::exception&) {
      // The window shows it; what was changed all the same is a step.
    }
  }

 private:
  using Command = void (ManyCommands::*)();

  static void PutOdd(const std::string& name, std::size_t size) {
    ExerciseSlots workout;
    workout[0].ExerciseName = name;
    Bytes file = EncodeWorkout(workout);
    file.resize(size, 0x5A);
    PutFile(name + ".RPV", file);
  }

  /// The common commands come up more often.
  Command AnyCommand() {
    static constexpr Command kRare[] = {&ManyCommands::Choose, &ManyCommands::Create,
                                        &ManyCommands::Delete, &ManyCommands::Duplicate,
                                        &ManyCommands::Rename, &ManyCommands::Update};
    static constexpr Command kCommon[] = {
        &ManyCommands::ChangeExercises, &ManyCommands::Select,        &ManyCommands::ChangeSets,
        &ManyCommands::ChangeValues,    &ManyCommands::ChangeMusic,   &ManyCommands::ChangeChoices,
        &ManyCommands::CopyAnExercise,  &ManyCommands::AddAnExercise, &ManyCommands::AddASet};
    if (Any(6) == 0) return kRare[Any(std::size(kRare))];
    return kCommon[Any(std::size(kCommon))];
  }

  void Answer(std::vector<std::string> answers) {
    dialogs.answers.assign(answers.begin(), answers.end());
  }

  std::string AnyName() {
    static constexpr const char* kNames[] = {"Monday", "Friday", "Sunday", "Legs", "Back"};
    return kNames[Any(std::size(kNames))];
  }

  std::string AnyListed() {
    const int count = static_cast<int>(state.WorkoutNames.size());
    return count == 0 ? "" : state.WorkoutNames[static_cast<std::size_t>(Any(count))];
  }

  void Choose() { WorkoutDropBox_Click(editor, AnyListed()); }

  void Create() {
    Answer({AnyName()});
    CreateNewWorkoutButton_Click(editor);
  }

  void Delete() {
    Answer({"OK"});
    DeleteSelectedWorkoutButton_Click(editor);
  }

  void Duplicate() {
    Answer({AnyName()});
    DuplicateWorkout(editor);
  }

  void Rename() {
    Answer({AnyName()});
    RenameWorkout(editor);
  }

  void Update() {
    Answer({"OK"});
    UpdateSelectedWorkoutButton_Click(editor);
  }

  void Select() {
    if (state.NumberOfExercises > 0) {
      state.CurrentExercise = static_cast<std::int16_t>(Any(state.NumberOfExercises));
    }
  }

  void AddAnExercise() {
    Answer({"Exercise " + std::to_string(Any(9))});
    AddExerciseButton_Click(editor);
  }

  void ChangeExercises() {
    const int row = Any(std::max<int>(1, state.NumberOfExercises));
    if (state.NumberOfExercises == 0) return;
    switch (Any(3)) {
      case 0:
        Answer({"Name " + std::to_string(Any(9))});
        return EditExerciseNameButton_Click(editor, row);
      case 1:
        Answer({Any(3) == 0 ? "OK" : "Cancel"});
        return RemoveExerciseButton_Click(editor, row);
      default:
        Answer({"OK"});
        return MoveUpExerciseListButton_Click(editor, row);
    }
  }

  void CopyAnExercise() {
    Answer({AnyName()});
    CopyExercise(editor, state.CurrentExercise);
  }

  void AddASet() {
    Answer({std::to_string(Any(100)), std::to_string(Any(100))});
    AddNewSetButton_Click(editor);
  }

  void ChangeSets() {
    const int row = Any(MaxSets);
    Answer({"OK"});
    switch (Any(3)) {
      case 0:
        return RemoveSelectedSetButton_Click(editor, row);
      case 1:
        return MoveSetUpListButton_Click(editor, row);
      default:
        return ManualDateResetButton_Click(editor, row);
    }
  }

  void ChangeValues() {
    static constexpr void (*kLists[])(Editor&, int) = {SetList1_DblClick,    SetList2_DblClick,
                                                       SetListInc1_DblClick, SetListInc2_DblClick,
                                                       FreqList1_DblClick,   FreqList2_DblClick};
    Answer({std::to_string(Any(20))});
    kLists[Any(std::size(kLists))](editor, Any(MaxSets));
  }

  void ChangeMusic() {
    const std::string music = folder.Path() + "music/";
    const int row = Any(MaxMusicFiles);
    Answer({"OK"});
    switch (Any(4)) {
      case 0:
        return MusicList_DragDrop(editor, {music});
      case 1:
        Answer({music + "a.mp3"});
        return AddMusicFileButton_Click(editor);
      case 2:
        return MoveMusicFileUpListButton_Click(editor, row);
      default:
        return RemoveMusicFileButton_Click(editor, row);
    }
  }

  void ChangeChoices() {
    Answer({std::to_string(Any(30))});
    switch (Any(5)) {
      case 0:
        return SetButton_Click(editor, Any(4));
      case 1:
        return UnitsSelection_Click(editor, Any(2));
      case 2:
        return SetExerciseTimeButton_Click(editor);
      case 3:
        return ExerciseTimeButton_Click(editor);
      default:
        return RandomMusicCheckBox_Click(editor,
                                         Any(2) == 0 ? CheckBox::kTicked : CheckBox::kUnticked);
    }
  }

  std::minstd_rand numbers_;
};

TEST_P(ManyCommands, UndoneToTheStartGiveTheFirstFilesAndRedoneTheLast) {
  const Files first = All();
  for (int i = 0; i < kCommands; ++i) GiveAny();
  const Files last = All();
  int steps = 0;
  for (; !editor.history->UndoName().empty(); ++steps) UndoAction_Trigger(editor);
  EXPECT_GT(steps, kCommands / 3);
  EXPECT_EQ(Difference(All(), first), "");
  while (!editor.history->RedoName().empty()) RedoAction_Trigger(editor);
  EXPECT_EQ(Difference(All(), last), "");
}

INSTANTIATE_TEST_SUITE_P(Seeds, ManyCommands, testing::Range(1U, 4U));

}  // namespace
}  // namespace repvolta
