#pragma once

#include <string>

#include "editing/Editor.h"

namespace repvolta {

/// Asks for a file to write. One that the program itself keeps, such as a workout, is refused with
/// a message, since it would be replaced by something else. Returns "" then and when it was
/// cancelled.
std::string ChooseTarget(const Editor& editor, const FileQuestion& question);

/// What is added to the message that the file was written; "" when there is no weakness.
std::string WeaknessText(const std::string& weakness);

}  // namespace repvolta
