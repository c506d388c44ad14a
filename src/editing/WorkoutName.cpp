#include "editing/WorkoutName.h"

#include "base/FileNames.h"
#include "base/ProgramFiles.h"
#include "base/Text.h"

namespace repvolta {

std::string AskWorkoutName(const Editor& editor, std::string_view prompt, std::string_view title,
                           std::string_view initial) {
  std::string name(TrimBlanks(editor.dialogs.AskText(prompt, title, initial)));
  if (name.empty()) return "";
  if (IsFileName(name) && IsFileName(name + std::string(kWorkoutExtension))) return name;
  editor.dialogs.ShowMessage(
      "A workout cannot have this name, because a file cannot have it: it contains a character "
      "such as \"/\", or it is too long.",
      title);
  return "";
}

}  // namespace repvolta
