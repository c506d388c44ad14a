#include <concepts>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <type_traits>

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
#include "keeping/Versions.h"

#include "support/FailureOf.h"
#include "support/SongBytes.h"
#include "support/UndoFixture.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

// Nobody who has an Editor can change a workout but through a History.

template <class Any>
concept ChangesTheCount = requires(Any& editor) { editor.State().NumberOfExercises = 1; };
template <class Any>
concept ChangesTheExercise = requires(Any& editor) { editor.Exercise().NumberOfSets = 1; };
template <class Any>
concept ChangesTheProgram = requires(Any& editor) { editor.program.state.NumberOfExercises = 1; };
template <class Any>
concept Saves = requires(Any& editor) { SaveWorkout(editor.State()); };
template <class Any>
concept HasTheProgram = requires(Any& editor) { static_cast<Program&>(editor.program); };
template <class Any>
concept OpensTheProgram = requires(Any& editor) { editor.program.program_; };
template <class Any>
concept ChangesAWorkout =
    ChangesTheCount<Any> || ChangesTheExercise<Any> || ChangesTheProgram<Any> || Saves<Any> ||
    HasTheProgram<Any> || OpensTheProgram<Any>;

struct OpenEditor {
  Program& program;
  ProgramState& State() const { return program.state; }
};

static_assert(ChangesTheCount<OpenEditor> && ChangesTheProgram<OpenEditor> && Saves<OpenEditor> &&
              HasTheProgram<OpenEditor>);
static_assert(!ChangesAWorkout<Editor>);
static_assert(!ChangesAWorkout<const Editor>);
static_assert(!std::is_constructible_v<WorkoutAccess, Program&>);
static_assert(!std::is_constructible_v<WorkoutAccess, EditedProgram&>);
static_assert(!std::is_constructible_v<WorkoutAccess, ProgramState&>);
static_assert(!std::is_default_constructible_v<WorkoutAccess>);

class Undoing : public UndoFixture {};

TEST_F(Undoing, IsOfNothingAtFirst) {
  EXPECT_EQ(editor.history->UndoName(), "");
  EXPECT_EQ(editor.history->RedoName(), "");
  Undo();
  Redo();
  EXPECT_EQ(GetFile(kMonday), before);
}

/// A command, and what it is called as a step.
struct Command {
  std::string step;
  std::vector<std::string> answers;
  std::function<void(Editor&)> run;
};

std::vector<Command> CommandsOfExercises() {
  return {
      {"Add Exercise 'Bench Press'", {"Bench Press"}, AddExerciseButton_Click},
      {"Edit Exercise Name 'Squat'",
       {"Front Squat"},
       [](Editor& e) { EditExerciseNameButton_Click(e, 0); }},
      {"Remove Exercise 'Squat'", {"OK"}, [](Editor& e) { RemoveExerciseButton_Click(e, 0); }},
      {"Move Exercise 'Plank'", {"OK"}, [](Editor& e) { MoveUpExerciseListButton_Click(e, 1); }},
      {"Copy Exercise 'Plank'", {"Monday"}, [](Editor& e) { CopyExercise(e, 1); }},
      {"Set Target Exercise Time", {"7"}, SetExerciseTimeButton_Click},
      {"Change Random Music",
       {},
       [](Editor& e) { RandomMusicCheckBox_Click(e, CheckBox::kTicked); }},
      {"Remove Music File 'a.mp3'", {"OK"}, [](Editor& e) { RemoveMusicFileButton_Click(e, 0); }},
      {"Move Music File 'b.mp3'", {"OK"}, [](Editor& e) { MoveMusicFileUpListButton_Click(e, 1); }},
  };
}

std::vector<Command> CommandsOfSets() {
  return {
      {"Add Set", {"20", "5"}, AddNewSetButton_Click},
      {"Remove Set", {"OK"}, [](Editor& e) { RemoveSelectedSetButton_Click(e, 0); }},
      {"Move Set", {"OK"}, [](Editor& e) { MoveSetUpListButton_Click(e, 1); }},
      {"Reset Dates", {}, [](Editor& e) { ManualDateResetButton_Click(e, 0); }},
      {"Change Kind of Sets", {}, [](Editor& e) { SetButton_Click(e, 2); }},
      {"Change Units", {}, [](Editor& e) { UnitsSelection_Click(e, 1); }},
      {"Change First Value", {"99"}, [](Editor& e) { SetList1_DblClick(e, 1); }},
      {"Change Second Value", {"98"}, [](Editor& e) { SetList2_DblClick(e, 1); }},
      {"Change First Increment", {"1"}, [](Editor& e) { SetListInc1_DblClick(e, 1); }},
      {"Change Second Increment", {"2"}, [](Editor& e) { SetListInc2_DblClick(e, 1); }},
      {"Change First Frequency", {"3"}, [](Editor& e) { FreqList1_DblClick(e, 1); }},
      {"Change Second Frequency", {"4"}, [](Editor& e) { FreqList2_DblClick(e, 1); }},
  };
}

TEST_F(Undoing, TakesBackEachCommandAsOneStepAndMakesItAgain) {
  std::vector<Command> commands = CommandsOfExercises();
  for (Command& command : CommandsOfSets()) commands.push_back(std::move(command));
  for (const Command& command : commands) {
    SCOPED_TRACE(command.step);
    state.CurrentExercise = 0;
    clock.Set(clock.Now() + 1);
    dialogs.answers.assign(command.answers.begin(), command.answers.end());
    command.run(editor);
    const Bytes after = GetFile(kMonday);
    EXPECT_NE(after, before);
    EXPECT_EQ(editor.history->UndoName(), command.step);
    Undo();
    EXPECT_EQ(GetFile(kMonday), before);
    EXPECT_EQ(editor.history->UndoName(), "");
    EXPECT_EQ(editor.history->RedoName(), command.step);
    Redo();
    EXPECT_EQ(GetFile(kMonday), after);
    Undo();
  }
}

TEST_F(Undoing, ShowsInMemoryWhatTheFileHolds) {
  ChangeWeight("99");
  Undo();
  EXPECT_EQ(state.Workout[0].SetValue1[0], 50);
  ChangeWeight("70");
  EXPECT_EQ(Weight(), 70) << "The file is known to be ours.";
}

TEST_F(Undoing, OfWhatChangedNothingIsNoStep) {
  Answer({"50"});
  SetList1_DblClick(editor, 0);
  Answer({"cancelled"});
  RemoveExerciseButton_Click(editor, 0);
  EXPECT_EQ(editor.history->UndoName(), "");
}

TEST_F(Undoing, TakesBackADropOfSeveralSongsAsOneStep) {
  PutFile("music/c.mp3", SongBytes(10));
  PutFile("music/d.mp3", SongBytes(10));
  MusicList_DragDrop(editor, {folder.Path() + "music/c.mp3", folder.Path() + "music/d.mp3"});
  EXPECT_EQ(Saved()[0].NumberOfMusicFiles, 4);
  EXPECT_EQ(editor.history->UndoName(), "Add Music Files");
  Undo();
  EXPECT_EQ(GetFile(kMonday), before);
}

TEST_F(Undoing, GoesToTheExerciseAndTheRow) {
  Answer({"OK"});
  RemoveSelectedSetButton_Click(editor, 1);
  state.CurrentExercise = 1;
  screen.ShowTab(WindowTab::kSettings);
  Undo();
  EXPECT_EQ(state.CurrentExercise, 0);
  EXPECT_EQ(screen.tab, WindowTab::kExercise);
  EXPECT_EQ(screen.selectedSet, 1);
  Redo();
  EXPECT_EQ(screen.selectedSet, 0);
}

TEST_F(Undoing, LoadsTheWorkoutItConcerns) {
  Answer({"Friday"});
  CopyExercise(editor, 0);
  EXPECT_EQ(Saved("Friday.RPV")[0].ExerciseName.Text(), "Squat");
  const Bytes after = GetFile(kFriday);
  Undo();
  EXPECT_EQ(state.WorkoutFileName, "Friday.RPV");
  EXPECT_EQ(state.NumberOfExercises, 0);
  EXPECT_EQ(screen.SelectedWorkout(), 0);
  EXPECT_EQ(GetFile(kFriday), EncodeWorkout({}));
  Redo();
  EXPECT_EQ(GetFile(kFriday), after);
  EXPECT_EQ(GetFile(kMonday), before);
}

TEST_F(Undoing, BringsAWorkoutBackThatANewOneHasReplaced) {
  Answer({"Monday"});
  CreateNewWorkoutButton_Click(editor);
  EXPECT_EQ(state.NumberOfExercises, 0);
  EXPECT_EQ(editor.history->UndoName(), "New Workout 'Monday'");
  Undo();
  EXPECT_EQ(GetFile(kMonday), before);
  EXPECT_EQ(state.NumberOfExercises, 2);
  EXPECT_THAT(state.WorkoutNames, ElementsAre("Friday.RPV", "Monday.RPV"));
}

TEST_F(Undoing, RemovesANewWorkoutAndGoesBackToTheOneBefore) {
  Answer({"Sunday"});
  CreateNewWorkoutButton_Click(editor);
  Undo();
  EXPECT_FALSE(fs::exists("workouts/Sunday.RPV"));
  EXPECT_EQ(state.WorkoutFileName, "Monday.RPV");
  EXPECT_THAT(state.WorkoutNames, ElementsAre("Friday.RPV", "Monday.RPV"));
  EXPECT_THAT(VersionsOf("Sunday.RPV"), SizeIs(1)) << "No content is lost.";
  Redo();
  EXPECT_EQ(state.WorkoutFileName, "Sunday.RPV");
}

TEST_F(Undoing, BringsADeletedWorkoutBack) {
  fs::current_path("workouts");
  Answer({"OK"});
  DeleteSelectedWorkoutButton_Click(editor);
  fs::current_path("..");
  EXPECT_FALSE(fs::exists(kMonday));
  Undo();
  EXPECT_EQ(GetFile(kMonday), before);
  EXPECT_EQ(state.WorkoutFileName, "Monday.RPV");
  Redo();
  EXPECT_FALSE(fs::exists(kMonday));
  EXPECT_EQ(state.WorkoutFileName, "");
}

TEST_F(Undoing, DoesNotPutADeletedWorkoutBesideOneWhoseNameDiffersInCase) {
  fs::current_path("workouts");
  Answer({"OK"});
  DeleteSelectedWorkoutButton_Click(editor);
  fs::current_path("..");
  PutFile("workouts/MONDAY.RPV", "theirs");
  EXPECT_THROW(Undo(), FileError);
  EXPECT_FALSE(fs::exists(kMonday));
  EXPECT_EQ(GetTextFile("workouts/MONDAY.RPV"), "theirs");
}

TEST_F(Undoing, TakesBackCopiesAndNewNamesOfWorkouts) {
  Answer({"Copy"});
  DuplicateWorkout(editor);
  Answer({"Third"});
  RenameWorkout(editor);
  KeepVersion("workouts/Third.RPV", BeforeWhat::kUpdate, kToday);
  EXPECT_EQ(editor.history->UndoName(), "Rename Workout 'Copy'");
  Undo();
  EXPECT_EQ(state.WorkoutFileName, "Copy.RPV");
  EXPECT_EQ(GetFile("workouts/Copy.RPV"), before);
  EXPECT_THAT(VersionsOf("Copy.RPV"), SizeIs(1)) << "The versions go along.";
  EXPECT_EQ(editor.history->UndoName(), "Duplicate Workout 'Monday'");
  Undo();
  EXPECT_EQ(state.WorkoutFileName, "Monday.RPV");
  EXPECT_FALSE(fs::exists("workouts/Copy.RPV"));
  EXPECT_FALSE(fs::exists("workouts/Third.RPV"));
  Redo();
  Redo();
  EXPECT_EQ(GetFile("workouts/Third.RPV"), before);
}

TEST_F(Undoing, BringsBackAFileOfAnySizeByteForByte) {
  for (const std::size_t size :
       {std::size_t{0}, std::size_t{5120}, kWorkoutFileSize - 1, kWorkoutFileSize + 7}) {
    SCOPED_TRACE(size);
    Bytes odd = before;
    odd.resize(size, 0xA5);
    PutFile(kMonday, odd);
    LoadAndShowWorkout(editor);
    Answer({"Row"});
    AddExerciseButton_Click(editor);
    EXPECT_EQ(GetFile(kMonday).size(), kWorkoutFileSize);
    Undo();
    EXPECT_EQ(GetFile(kMonday), odd);
  }
}

TEST_F(Undoing, OfAFormThatWasSavedWithTheDefaultTime) {
  Bytes odd = before;
  odd.push_back(1);
  PutFile(kMonday, odd);
  LoadAndShowWorkout(editor);
  Answer({"9"});
  ExerciseTimeButton_Click(editor);
  EXPECT_EQ(editor.history->UndoName(), "Save Workout");
  Undo();
  EXPECT_EQ(GetFile(kMonday), odd);
}

TEST_F(Undoing, RefusesWhatAnotherProgramHasChanged) {
  ChangeWeight("99");
  Bytes theirs = GetFile(kMonday);
  theirs[100] ^= 1U;
  PutFile(kMonday, theirs);
  EXPECT_EQ(
      FailureOf([&] { Undo(); }),
      "workouts/Monday.RPV could not be changed: Another program has changed or deleted it "
      "meanwhile. It stays as it is. Earlier states are in the menu Workout under \"Restore an "
      "Earlier Version ...\".");
  EXPECT_EQ(GetFile(kMonday), theirs);
  EXPECT_EQ(editor.history->UndoName(), "Change First Value") << "The step stays.";
  theirs[100] ^= 1U;
  PutFile(kMonday, theirs);
  Undo();
  EXPECT_EQ(GetFile(kMonday), before);
}

TEST_F(Undoing, RefusesWhatAnotherProgramHasDeleted) {
  ChangeWeight("99");
  fs::remove(kMonday);
  EXPECT_THROW(Undo(), FileError);
  EXPECT_FALSE(fs::exists(kMonday));
}

TEST_F(Undoing, OfTheSaveThatBroughtADeletedFileBackLeavesTheFile) {
  fs::remove(kMonday);
  ChangeWeight("99");
  Undo();
  EXPECT_EQ(GetFile(kMonday), before);
}

TEST_F(Undoing, KeepsTheFileAsAnyEditDoes) {
  ChangeWeight("99");
  clock.Set(clock.Now() + 1);
  const Bytes after = GetFile(kMonday);
  Undo();
  const auto versions = VersionsOf("Monday.RPV");
  ASSERT_FALSE(versions.empty());
  EXPECT_EQ(versions.back().name.before, BeforeWhat::kChange);
  EXPECT_EQ(GetFile(versions.back().path), after);
}

TEST_F(Undoing, SaysOnceThatNoVersionCanBeKept) {
  ChangeWeight("99");
  clock.Set(clock.Now() + 1);
  fs::remove_all("versions");
  PutFile("versions", "in the way");
  dialogs.asked.clear();
  Undo();
  ASSERT_THAT(dialogs.asked, SizeIs(1));
  EXPECT_THAT(dialogs.asked[0], HasSubstr("No earlier version of the workout is kept: "));
  EXPECT_EQ(GetFile(kMonday), before);
}

}  // namespace
}  // namespace repvolta
