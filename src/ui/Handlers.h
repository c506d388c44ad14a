#pragma once

#include <QAbstractButton>
#include <functional>
#include <string>

#include "editing/Dialogs.h"

namespace repvolta {

/// Runs all commands of the window, one at a time, and shows an exception of a command in a message
/// box.
class Handlers {
 public:
  enum class Outcome { kDone, kFailed };

  /// `beforehand` is called before each command, which is skipped if it throws; `afterwards` is
  /// called after each.
  Handlers(Dialogs& dialogs, std::function<void()> beforehand,
           std::function<void(Outcome)> afterwards)
      : dialogs_(dialogs), beforehand_(std::move(beforehand)), afterwards_(std::move(afterwards)) {}

  /// Does nothing while another command runs. `failure` says what did not happen: "The set could
  /// not be added."; the message box puts it before a reason that does not say so itself.
  void Run(const std::string& failure, const std::function<void()>& handler);

  /// The same without `beforehand`, for a command that does not use the workout in memory.
  void RunApart(const std::string& failure, const std::function<void()>& handler);

  /// Runs the handler whenever the button is clicked.
  void OnClick(QAbstractButton* button, const std::string& failure,
               const std::function<void()>& handler);

  /// The same for a command that does not use the workout in memory.
  void OnClickApart(QAbstractButton* button, const std::string& failure,
                    const std::function<void()>& handler);

  bool AreRunning() const { return running_; }

 private:
  Outcome RunGuarded(const std::string& failure, const std::function<void()>& handler);

  Dialogs& dialogs_;
  std::function<void()> beforehand_;
  std::function<void(Outcome)> afterwards_;
  bool running_ = false;
};

}  // namespace repvolta
