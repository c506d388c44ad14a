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

  /// The folder of the guide, see FindGuide.
  void SetGuide(const std::string& folder) { guide_ = folder; }

  void ShowMessage(std::string_view text, std::string_view title = kProductName) override;
  bool Confirm(std::string_view text, std::string_view title) override;
  std::string AskText(std::string_view prompt, std::string_view title,
                      std::string_view initial = {}) override;
  std::optional<std::size_t> Choose(std::string_view prompt, std::string_view title,
                                    const std::vector<std::string>& items) override;
  std::string SelectExercise() override;
  std::string SelectDirectory() override;
  std::vector<std::string> SelectMusicFiles(const std::string& startFolder) override;
  void ShowAbout() override;
  void OpenDocument(const std::string& path) override;
  void OpenGuide(std::string_view page) override;

 private:
  QPointer<QWidget> owner_;
  std::string guide_;
};

}  // namespace repvolta
