#include "editing/ExportCsv.h"

#include <string>
#include <vector>

#include "app/WorkoutDamage.h"
#include "app/WorkoutFiles.h"
#include "base/FileNames.h"
#include "base/Text.h"
#include "base/WholeFile.h"
#include "editing/ChooseTarget.h"
#include "editing/WorkoutCsv.h"

namespace repvolta {
namespace {

constexpr const char* kTitle = "Export as CSV";
constexpr const char* kExtension = ".csv";

/// The file as it will be.
struct Table {
  std::string content = CsvHeader();
  int lines = 0;
  int workouts = 0;
  std::vector<std::string> leftOut;  // why, for each
};

void Add(Table& table, const ProgramState& state, double today) {
  const std::string damage = DamageOf(state);
  if (!damage.empty()) {
    table.leftOut.push_back(damage);
    return;
  }
  table.content += CsvLines(state, today);
  table.lines += CsvLineCount(state);
  ++table.workouts;
}

/// Uses `room` to load the workout.
void AddFile(Table& table, ProgramState& room, const std::string& name, double today) {
  room.WorkoutFileName = name;
  try {
    if (LoadWorkout(room) == WorkoutLoad::kLoaded) {
      Add(table, room, today);
    } else {
      table.leftOut.push_back(name + " is gone.");
    }
  } catch (const FileError& error) {
    table.leftOut.emplace_back(error.what());
  }
}

std::string LeftOutText(const Table& table) {
  std::string text;
  for (const std::string& reason : table.leftOut) text += "\rLeft out: " + reason;
  return text;
}

/// `what` is what was exported: "Monday", "3 workouts".
void SaveTable(const Editor& editor, const Table& table, const std::string& fileName,
               const std::string& what) {
  if (table.workouts == 0) {
    editor.dialogs.ShowMessage("There is no workout to export." + LeftOutText(table), kTitle);
    return;
  }
  const std::string path = ChooseTarget(editor, {.name = "CsvFileDialog",
                                                 .title = kTitle,
                                                 .file = fileName,
                                                 .filter = "Tables (*.csv)",
                                                 .suffix = kExtension});
  if (path.empty()) return;
  WriteWholeFile(path, AsBytes(table.content));
  editor.dialogs.ShowMessage(what + " with " + Counted(table.lines, "line") +
                                 (table.workouts == 1 ? " is in " : " are in ") + path + "." +
                                 LeftOutText(table),
                             kTitle);
}

}  // namespace

void ExportCsv(const Editor& editor) {
  const ProgramState& state = editor.State();
  if (TrimBlanks(state.WorkoutFileName).empty()) return;
  Table table;
  Add(table, state, editor.program.clock.Today());
  const std::string name = BaseName(state.WorkoutFileName);
  SaveTable(editor, table, AsFileName(name, kExtension), name);
}

void ExportAllCsv(const Editor& editor) {
  const ProgramState& state = editor.State();
  MakeProgramDirectoryCurrent(state);
  const double today = editor.program.clock.Today();
  ProgramState room = state;
  ReadWorkoutNames(room);
  Table table;
  for (const std::string& name : room.WorkoutNames) {
    if (name == state.WorkoutFileName) {
      Add(table, state, today);
    } else {
      AddFile(table, room, name, today);
    }
  }
  SaveTable(editor, table, "Workouts.csv", Counted(table.workouts, "workout"));
}

}  // namespace repvolta
