#pragma once

#include <string>
#include <string_view>

#include "base/Product.h"

namespace repvolta {

/// The boxes and dialogs that the commands of the window ask through. Each call returns when its
/// box was closed. Texts are plain; a carriage return is a line break.
class Dialogs {
 public:
  virtual ~Dialogs() = default;

  /// A message box with an OK button.
  virtual void ShowMessage(std::string_view text, std::string_view title = kProductName) = 0;

  /// A message box with OK and Cancel. True: OK.
  virtual bool Confirm(std::string_view text, std::string_view title) = 0;

  /// An input box. Empty when it was cancelled.
  virtual std::string AskText(std::string_view prompt, std::string_view title,
                              std::string_view initial = {}) = 0;

  /// SelectExerciseDialog. Empty: no exercise.
  virtual std::string SelectExercise() = 0;

  /// SelectDirectory. Empty when it was cancelled.
  virtual std::string SelectDirectory() = 0;

  /// The file-open dialog for music. Empty when it was cancelled.
  virtual std::string SelectMusicFile(const std::string& startFolder) = 0;

  /// AboutForm.
  virtual void ShowAbout() = 0;

  /// Opens a document with the program that the desktop has for it, and does not wait for its end.
  virtual void OpenDocument(const std::string& path) = 0;
};

}  // namespace repvolta
