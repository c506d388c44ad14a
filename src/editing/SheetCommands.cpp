#include "editing/SheetCommands.h"

#include <optional>
#include <string>

#include "app/WorkoutDamage.h"
#include "base/FileNames.h"
#include "base/Text.h"
#include "base/WholeFile.h"
#include "editing/ChooseTarget.h"

namespace repvolta {
namespace {

/// Nothing without a workout. Says why a workout has no sheet.
std::optional<WorkoutSheet> SheetToPrint(const Editor& editor, const std::string& title) {
  const ProgramState& state = editor.State();
  if (TrimBlanks(state.WorkoutFileName).empty()) return std::nullopt;
  std::string reason = DamageOf(state);
  if (state.NumberOfExercises == 0) reason = "The workout has no exercises.";
  if (reason.empty()) return SheetOf(state, editor.program.clock.Today());
  editor.dialogs.ShowMessage(reason, title);
  return std::nullopt;
}

}  // namespace

void PrintWorkout(const Editor& editor, const std::function<Printing(const WorkoutSheet&)>& print) {
  constexpr const char* kTitle = "Print";
  const auto sheet = SheetToPrint(editor, kTitle);
  if (!sheet || print(*sheet) != Printing::kNoPrinter) return;
  editor.dialogs.ShowMessage(
      "No printer is set up on this computer. \"Save as PDF ...\" makes a file of the sheet, which "
      "another computer can print.",
      kTitle);
}

void SaveWorkoutAsPdf(const Editor& editor,
                      const std::function<Bytes(const WorkoutSheet&)>& pdfOf) {
  constexpr const char* kTitle = "Save as PDF";
  constexpr const char* kExtension = ".pdf";
  const auto sheet = SheetToPrint(editor, kTitle);
  if (!sheet) return;
  const std::string name = BaseName(editor.State().WorkoutFileName);
  const std::string path = ChooseTarget(editor, {.name = "PdfFileDialog",
                                                 .title = kTitle,
                                                 .file = AsFileName(name, kExtension),
                                                 .filter = "PDF (*.pdf)",
                                                 .suffix = kExtension});
  if (path.empty()) return;
  WriteWholeFile(path, pdfOf(*sheet));
  editor.dialogs.ShowMessage("The sheet of " + name + " is in " + path + ".", kTitle);
}

}  // namespace repvolta
