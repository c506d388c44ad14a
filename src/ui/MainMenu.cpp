#include "ui/MainMenu.h"

#include <QShortcut>
#include <algorithm>

#include "ui/ControlAction.h"
#include "ui/Mnemonics.h"

namespace repvolta {
namespace {

/// Texts and mnemonics may change with every opening.
void BringUpToDate(const QMenu& menu) {
  QStringList texts;
  for (QAction* action : menu.actions()) {
    auto* control = qobject_cast<ControlAction*>(action);
    if (control != nullptr) control->FollowControl();
    texts.append(control != nullptr ? control->TextOfControl() : action->text());
  }
  texts = WithMnemonics(texts);
  for (qsizetype i = 0; i < texts.size(); ++i) menu.actions()[i]->setText(texts[i]);
}

}  // namespace

MainMenu::MainMenu(QWidget& window, const std::vector<MenuLine>& lines) : QMenuBar(&window) {
  setObjectName("MainMenu");
  // A desktop's own bar would not open at F10.
  setNativeMenuBar(false);
  for (const MenuLine& line : lines) AddLine(window, line);
  for (const auto* menu : findChildren<QMenu*>()) BringUpToDate(*menu);
  auto* key = new QShortcut(Qt::Key_F10, &window);
  key->setAutoRepeat(false);
  connect(key, &QShortcut::activated, this, &MainMenu::OpenFirst);
}

QMenu* MainMenu::MenuOf(Menu menu) {
  const QString name = QString(TitleOf(menu)) + "Menu";
  auto* found = findChild<QMenu*>(name, Qt::FindDirectChildrenOnly);
  if (found != nullptr) return found;
  found = addMenu(TitleOf(menu));
  found->setObjectName(name);
  connect(found, &QMenu::aboutToShow, this, [found] { BringUpToDate(*found); });
  return found;
}

void MainMenu::AddLine(QWidget& window, const MenuLine& line) {
  QMenu* menu = MenuOf(line.menu);
  const QString name = line.object;
  if (name.isEmpty()) {
    menu->addSeparator();
  } else if (auto* action = window.findChild<QAction*>(name)) {
    menu->addAction(action);
  } else if (auto* control = window.findChild<QWidget*>(name)) {
    menu->addAction(new ControlAction(*control, line.text, menu));
  } else {
    missing_.append(name);
  }
}

void MainMenu::OpenFirst() {
  if (!isEnabled() || actions().isEmpty()) return;
  QAction* first = actions().first();
  setActiveAction(first);
  const QList<QAction*> lines = first->menu()->actions();
  const auto usable = std::find_if(lines.begin(), lines.end(),
                                   [](const QAction* line) { return line->isEnabled(); });
  if (usable != lines.end()) first->menu()->setActiveAction(*usable);
}

}  // namespace repvolta
