#pragma once

#include <string>
#include <string_view>

#include "editing/Editor.h"

namespace repvolta {

/// Asks for the name of a workout, without extension; `help` stands below the field. A message says
/// when a file cannot have it. Returns "" then, and when the person cancels.
std::string AskWorkoutName(const Editor& editor, std::string_view prompt, std::string_view title,
                           const AnswerHelp& help, std::string_view initial = {});

}  // namespace repvolta
