#pragma once

#include <QAction>
#include <QLabel>
#include <functional>
#include <string>

namespace repvolta {

/// The last update, as the main window remembers it: a line where the progress window does not show
/// it, and the command "Show Last Update" (ShowLastUpdateAction), which is enabled after an update.
class LastUpdate : public QObject {
 public:
  LastUpdate(QWidget* window, QLabel* label, std::function<void()> showAgain);

  /// An update has ended; `text` is what came out, "" where the progress window shows it.
  void Show(const std::string& text);

 private:
  QLabel* label_;
  QAction* action_;
};

}  // namespace repvolta
