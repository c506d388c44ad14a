#pragma once

#include <string_view>

namespace repvolta {

/// UpdateForm, as the main window uses it.
class ProgressWindow {
 public:
  virtual ~ProgressWindow() = default;

  /// Shows the window, its list empty, without waiting for its end.
  virtual void Show() = 0;
  virtual void Hide() = 0;

  /// Appends a line, which is painted when the call returns. The list keeps its scroll position.
  virtual void AddLine(std::string_view line) = 0;
};

/// RandomMusicMessage, as the main window uses it.
class PleaseWait {
 public:
  virtual ~PleaseWait() = default;

  /// Shows the window without waiting for its end; it is painted when the call returns.
  virtual void Show() = 0;
  virtual void Hide() = 0;
};

/// The please-wait window, shown while it lives.
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
