#pragma once

#include <QPointer>
#include <QWidget>
#include <utility>

#include "editing/Dialogs.h"

namespace repvolta {

/// The real boxes and dialogs.
class QtDialogs : public Dialogs {
 public:
  /// `layoutFile` is where WindowLayout.h keeps sizes and folders.
  explicit QtDialogs(std::string layoutFile = {}) : layoutFile_(std::move(layoutFile)) {}

  /// The boxes belong to this window and stay above it.
  void SetOwner(QWidget* owner) { owner_ = owner; }

  /// The folder of the guide, see FindGuide.
  void SetGuide(const std::string& folder) { guide_ = folder; }

  void ShowMessage(std::string_view text, std::string_view title = kProductName) override;
  bool Confirm(std::string_view text, std::string_view title) override;
  std::string AskText(std::string_view prompt, std::string_view title, const AnswerHelp& help,
                      std::string_view initial = {}) override;
  std::optional<std::size_t> Choose(std::string_view prompt, std::string_view title,
                                    const std::vector<std::string>& items) override;
  std::string SelectExercise() override;
  std::string SelectDirectory(const FolderQuestion& question) override;
  std::vector<std::string> SelectMusicFiles(const std::string& startFolder) override;
  std::string ChooseFileToSave(const FileQuestion& question) override;
  std::string ChooseFileToOpen(const FileQuestion& question) override;
  void ShowLongWork(std::string_view text, const LongWork& work) override;
  std::optional<std::vector<PathExchange>> AskRestore(const RestoreQuestion& question) override;
  PreviewOutcome ShowPreview(const std::function<Preview()>& plan, Listening* listening) override;
  std::optional<ChosenVersion> ChooseVersion(EarlierVersions& versions) override;
  void ShowAbout() override;
  void OpenDocument(const std::string& path) override;
  void OpenGuide(std::string_view page) override;

 private:
  std::string layoutFile_;
  QPointer<QWidget> owner_;
  std::string guide_;
};

}  // namespace repvolta
