#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Product.h"
#include "editing/AnswerHelp.h"
#include "editing/EarlierVersions.h"
#include "editing/FileQuestion.h"
#include "editing/FolderQuestion.h"
#include "editing/LongWork.h"
#include "editing/Preview.h"
#include "editing/RestoreQuestion.h"

namespace repvolta {

class Listening;

/// The message boxes and dialogs of the window's commands. Each call returns when its box is
/// closed. Texts are plain; a carriage return is a line break.
class Dialogs {
 public:
  virtual ~Dialogs() = default;

  /// A message box with an OK button.
  virtual void ShowMessage(std::string_view text, std::string_view title = kProductName) = 0;

  /// A message box with OK and Cancel. Returns true for OK.
  virtual bool Confirm(std::string_view text, std::string_view title) = 0;

  /// An input box. `help` stands below its field. Returns "" when it was cancelled.
  virtual std::string AskText(std::string_view prompt, std::string_view title,
                              const AnswerHelp& help, std::string_view initial = {}) = 0;

  /// A box with a list of `items`. Returns the position of the chosen one; nothing when it was
  /// cancelled.
  virtual std::optional<std::size_t> Choose(std::string_view prompt, std::string_view title,
                                            const std::vector<std::string>& items) = 0;

  /// SelectExerciseDialog. Returns "" when no exercise was chosen.
  virtual std::string SelectExercise() = 0;

  /// SelectDirectory. Returns "" when it was cancelled.
  virtual std::string SelectDirectory(const FolderQuestion& question) = 0;

  /// The file-open dialog for music. Returns no files when it was cancelled.
  virtual std::vector<std::string> SelectMusicFiles(const std::string& startFolder) = 0;

  /// The file dialogs for one file; "" when it was cancelled. The first asks before an existing
  /// file is chosen.
  virtual std::string ChooseFileToSave(const FileQuestion& question) = 0;
  virtual std::string ChooseFileToOpen(const FileQuestion& question) = 0;

  /// Runs `work`; when it takes longer than a moment, a window shows `text` and how much is done,
  /// and can stop it. Throws what `work` throws.
  virtual void ShowLongWork(std::string_view text, const LongWork& work) = 0;

  /// RestoreBackupForm. Returns the exchanges that the person wants; nothing when it was cancelled.
  virtual std::optional<std::vector<PathExchange>> AskRestore(const RestoreQuestion& question) = 0;

  /// PreviewForm. `plan` is called before it is shown and can take a moment; what it throws is
  /// passed on. Without `listening` nothing can be listened to.
  virtual PreviewOutcome ShowPreview(const std::function<Preview()>& plan,
                                     Listening* listening) = 0;

  /// RestoreVersionForm. Returns the version that is to be restored; nothing when it was closed.
  virtual std::optional<ChosenVersion> ChooseVersion(EarlierVersions& versions) = 0;

  /// AboutForm.
  virtual void ShowAbout() = 0;

  /// Opens a document with the desktop's program for it and does not wait for the program's end.
  virtual void OpenDocument(const std::string& path) = 0;

  /// Opens a page of the guide, "music.html#random-music", with the desktop's program for it, or
  /// says why it cannot. Throws nothing.
  virtual void OpenGuide(std::string_view page) = 0;
};

}  // namespace repvolta
