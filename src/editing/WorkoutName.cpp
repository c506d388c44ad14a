#include "editing/WorkoutName.h"

#include <stdexcept>

#include "editing/Answers.h"

namespace repvolta {

std::string AskWorkoutName(const Editor& editor, std::string_view prompt, std::string_view title,
                           const AnswerHelp& help, std::string_view initial) {
  const std::string answer = editor.dialogs.AskText(prompt, title, help, initial);
  try {
    return WorkoutNameOf(answer).value_or("");
  } catch (const std::invalid_argument& error) {
    editor.dialogs.ShowMessage(error.what(), title);
    return "";
  }
}

}  // namespace repvolta
