#pragma once

#include <QMenuBar>
#include <QStringList>
#include <vector>

#include "ui/MenuLines.h"

namespace repvolta {

/// The menu bar of the main window: the commands that the window's buttons, lists and actions
/// already are. F10 opens its first menu.
class MainMenu : public QMenuBar {
  Q_OBJECT

 public:
  /// All objects that the lines name must exist already.
  MainMenu(QWidget& window, const std::vector<MenuLine>& lines);

  /// The names of lines for which there is no object; such lines are left out.
  const QStringList& Missing() const { return missing_; }

 private:
  void AddLine(QWidget& window, const MenuLine& line);
  QMenu* MenuOf(Menu menu);
  void OpenFirst();

  QStringList missing_;
};

}  // namespace repvolta
