// Runs one procedure in the current directory. An exception is printed and ends the program with
// status 1.

#include <cstdio>
#include <filesystem>
#include <map>
#include <string>

#include "app/ProgramDirectory.h"
#include "app/RecordFormat.h"
#include "app/Settings.h"
#include "app/WorkoutFiles.h"
#include "backup/WriteBackup.h"
#include "editing/RestoreBackup.h"
#include "editing/RestoreVersion.h"
#include "editing/StartUp.h"
#include "update/MusicListing.h"
#include "update/RandomMusicList.h"
#include "update/RestoreAtStart.h"
#include "voices/PutClips.h"

#include "fakes/FakeServices.h"
#include "fakes/RecordingWindow.h"
#include "support/ClipBytes.h"

namespace repvolta {
namespace {

constexpr int kEdits = 100'000;

class NoOutputs : public AudioOutputs {
 public:
  std::vector<std::string> Names() override { return {}; }
};

/// A person's session: start, the set-up if it appears, a new exercise, exit.
void StartEditAndExit(ProgramState& state) {
  const std::filesystem::path world = std::filesystem::current_path().parent_path();
  RecordingWindow screen;
  screen.folders = {world / "music", world / "player"};
  screen.selectedWorkout = 0;
  FakeSpeech speech;
  NoOutputs outputs;
  SystemClock clock;
  ScriptedNumbers random;
  FakeProcesses processes;
  Program program{state, clock, random, processes, speech};
  const Editor editor = screen.EditorOf(program);
  Form_Load(editor, outputs);
  if (!state.WorkoutFileName.empty()) {
    state.Workout[4].ExerciseName = "Added";
    SaveWorkout(state);
  }
  ExitButton_Click(editor);
  for (const std::string& message : screen.messages) std::printf("%s\n", message.c_str());
}

/// Restores the backup "../b.zip" as a person would.
class BackupRestorer : public RecordingWindow {
 public:
  std::string ChooseFileToOpen(const FileQuestion& /*question*/) override {
    return std::filesystem::current_path().parent_path() / "b.zip";
  }
};

void RestoreTheBackup(ProgramState& state) {
  BackupRestorer screen;
  FakeSpeech speech;
  SystemClock clock;
  ScriptedNumbers random;
  FakeProcesses processes;
  Program program{state, clock, random, processes, speech};
  Editor editor = screen.EditorOf(program);
  LoadSettings(state);
  RestoreBackup(editor);
  for (const std::string& message : screen.messages) std::printf("%s\n", message.c_str());
}

/// Chooses the newest version of the workout, and goes on wherever it is asked.
class Restorer : public RecordingWindow {
 public:
  bool Confirm(std::string_view text, std::string_view /*title*/) override {
    std::printf("asked: %.*s\n", static_cast<int>(text.size()), text.data());
    return true;
  }
  std::optional<ChosenVersion> ChooseVersion(EarlierVersions& versions) override {
    return versions.Rows(0).empty() ? std::nullopt : versions.Read(0, 0);
  }
};

void RestoreNewestVersion(ProgramState& state) {
  Restorer window;
  FakeSpeech speech;
  SystemClock clock;
  ScriptedNumbers random;
  FakeProcesses processes;
  Program program{state, clock, random, processes, speech};
  LoadWorkout(state);
  Editor editor = window.EditorOf(program);
  RestoreVersion(editor);
}

/// Changes Monday and makes another workout as one step, undoes it and makes it again.
void UndoAndRedo(ProgramState& state) {
  RecordingWindow window;
  FakeSpeech speech;
  SystemClock clock;
  ScriptedNumbers random;
  FakeProcesses processes;
  Program program{state, clock, random, processes, speech};
  LoadWorkout(state);
  const Editor editor = window.EditorOf(program);
  ExerciseSlots changed = state.Workout;
  changed[0].SetValue1[0] = 99;
  const Bytes bytes = EncodeWorkout(changed);
  editor.history->ReplaceFiles({.name = "Change", .undone = {}, .done = {}}, BeforeWhat::kChange,
                               {{"Monday.RPV", bytes}, {"New.RPV", bytes}});
  editor.history->Undo();
  editor.history->Redo();
}

/// One of many edits: it puts its number into every exercise and into the settings. The next run
/// continues with the next number.
void SaveEdit(ProgramState& state, int number) {
  for (int i = 0; i < MaxExercises; ++i) {
    state.Workout[i].ExerciseName = "Edit " + std::to_string(number);
    state.Workout[i].SetValue1[0] = static_cast<float>(number);
  }
  state.Settings.MusicPath = std::to_string(number);
  state.Settings.OutputPath = std::to_string(number);
  SaveWorkout(state);
  SaveSettings(state);
}

void LoadAll(ProgramState& state) {
  LoadSettings(state);
  LoadWorkout(state);
  CountRandomMusicFiles(state);
  std::printf("%s %d %d\n", state.Settings.MusicPath.Text().c_str(), state.NumberOfExercises,
              state.RandomMusicFiles);
}

void SaveAll(ProgramState& state) {
  state.Workout[0].ExerciseName = "New";
  state.Settings.MusicPath = "new";
  ReplaceWorkoutFile(state);
  SaveWorkout(state);
  SaveSettings(state);
}

void EditOften(ProgramState& state) {
  LoadWorkout(state);
  const int before = static_cast<int>(state.Workout[0].SetValue1[0]);
  state.Workout = {};
  for (int i = 1; i <= kEdits; ++i) SaveEdit(state, before + i);
}

void StartWithoutWorkout(ProgramState& state) {
  state.WorkoutFileName.clear();
  StartEditAndExit(state);
}

void FinishARestore(ProgramState& state) { FinishInterruptedRestore(state.ProgramDirectory); }

/// The person records a word and takes in a clip of a voice; a clip is removed.
void PutSomeClips(ProgramState& state) {
  const Bytes clip = ClipBytes(Bytes(40, 'k'));
  const ClipOrigin own{.owner = ClipOwner::kOwn, .day = "2026-11-22"};
  PutClips(state.ProgramDirectory,
           {.clips = {{"1.wav", clip, own}, {"exercise/Hop.WAV", clip, own}},
            .files = {{"voices/Kim/1.wav", clip}},
            .removed = {"voice/pounds.wav"}});
}

void ListAll(ProgramState& state) {
  LoadWorkoutNames(state);
  for (const std::string& name : state.WorkoutNames) std::printf("%s\n", name.c_str());
}

void MakeABackup(ProgramState& /*state*/) {
  std::printf("%s\n", WriteBackup("../out/b.zip", OriginHere("/p/", 0)).weakness.c_str());
}

void Compile(ProgramState& /*state*/) {
  CompileMusicList(std::filesystem::current_path().parent_path() / "music");
}

void SetUp(ProgramState& /*state*/) {
  FillProgramDirectory("../home/repvolta/", "../usr/bin/repvolta");
}

int Run(const std::string& step) {
  const std::map<std::string, void (*)(ProgramState&)> steps = {
      {"load", LoadAll},
      {"save", SaveAll},
      {"edit", EditOften},
      {"start", StartWithoutWorkout},
      {"restore", RestoreNewestVersion},
      {"undo", UndoAndRedo},
      {"restore-backup", RestoreTheBackup},
      {"finish-restore", FinishARestore},
      {"put-clips", PutSomeClips},
      {"list", ListAll},
      {"backup", MakeABackup},
      {"compile", Compile}};
  ProgramState state;
  state.ProgramDirectory = std::filesystem::current_path().string() + "/";
  state.WorkoutFileName = "Monday.RPV";
  const auto found = steps.find(step);
  (found == steps.end() ? SetUp : found->second)(state);
  return 0;
}

}  // namespace
}  // namespace repvolta

int main(int argc, char** argv) {
  try {
    return repvolta::Run(argc == 2 ? argv[1] : "");
  } catch (const std::exception& error) {
    std::fprintf(stderr, "engine_steps: %s\n", error.what());
    return 1;
  }
}
