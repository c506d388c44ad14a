#pragma once

#include <QPointer>
#include <QWidget>

#include "editing/Dialogs.h"

namespace repvolta {

/// The real boxes and dialogs.
class QtDialogs : public Dialogs {
 public:
  /// The boxes belong to this window and stay above it.
  void SetOwner(QWidget* owner) { owner_ = owner; }

  void ShowMessage(std::string_view text, std::string_view title = kProductName) override;
  bool Confirm(std::string_view text, std::string_view title) override;
  std::string AskText(std::string_view prompt, std::string_view title,
                      std::string_view initial = {}) override;
  std::string SelectExercise() override;
  std::string SelectDirectory() override;
  std::vector<std::string> SelectMusicFiles(const std::string& startFolder) override;
  PreviewOutcome ShowPreview(const std::function<Preview()>& plan) override;
  void ShowAbout() override;
  void OpenDocument(const std::string& path) override;

 private:
  QPointer<QWidget> owner_;
};

}  // namespace repvolta
