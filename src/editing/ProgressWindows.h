#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "update/Progress.h"

namespace repvolta {

/// What the window says of an update that is over.
struct OutcomeTexts {
  std::string text;    // what came out
  std::string folder;  // that holds the files
  std::string hint;    // what to do next; "" when that is known

  bool operator==(const OutcomeTexts&) const = default;
};

/// UpdateForm, as the main window uses it.
class ProgressWindow {
 public:
  virtual ~ProgressWindow() = default;

  /// Clears the list and shows the window; does not wait until it is closed. An update runs now,
  /// and the window offers to stop it.
  virtual void Show() = 0;
  virtual void Hide() = 0;

  /// No update runs any more: the window stays as it is, but there is nothing to stop.
  virtual void UpdateEnds() = 0;

  /// Behind UpdateEnds: stays in sight until the next Show.
  virtual void ShowOutcome(const OutcomeTexts& outcome) = 0;

  /// Shows the window with the lines of the last update.
  virtual void ShowAgain() = 0;

  /// `open` is called when the person wants to see a folder.
  virtual void OnOpenFolder(std::function<void(const std::string& folder)> open) = 0;

  /// `stop` is called when the person wants the update to stop.
  virtual void OnStop(std::function<void()> stop) = 0;

  virtual void ShowProgress(const Progress& progress) = 0;

  /// Appends a line and paints it before it returns. The list keeps its scroll position.
  virtual void AddLine(std::string_view line) = 0;
};

/// RandomMusicMessage, as the main window uses it.
class PleaseWait {
 public:
  virtual ~PleaseWait() = default;

  /// Shows the window, painted when the call returns; does not wait until it is closed.
  virtual void Show() = 0;
  virtual void Hide() = 0;
};

/// Shows the please-wait window during this object's lifetime.
class WhileWaiting {
 public:
  explicit WhileWaiting(PleaseWait& window) : window_(window) { window_.Show(); }
  ~WhileWaiting() { window_.Hide(); }
  WhileWaiting(const WhileWaiting&) = delete;
  WhileWaiting& operator=(const WhileWaiting&) = delete;

 private:
  PleaseWait& window_;
};

}  // namespace repvolta
