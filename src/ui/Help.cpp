#include "ui/Help.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTabWidget>

#include "editing/GuidePages.h"
#include "ui/Keys.h"

namespace repvolta {
namespace {

/// The window for which a person asks for help; a menu belongs to the one that has opened it.
const QWidget& WindowOf(const QWidget& widget) {
  const QWidget* window = widget.window();
  while (window->windowType() == Qt::Popup && window->parentWidget() != nullptr) {
    window = window->parentWidget()->window();
  }
  return *window;
}

QString PlaceOf(const QWidget& window) {
  const auto* tabs = window.findChild<QTabWidget*>();
  return tabs != nullptr ? tabs->currentWidget()->objectName() : window.objectName();
}

}  // namespace

Help::Help(QWidget& mainWindow, Dialogs& dialogs) : QObject(&mainWindow), dialogs_(dialogs) {
  const QAction* here = AddCommand(&mainWindow, "HelpAction", "Help on This Tab", Qt::Key_F1);
  connect(here, &QAction::triggered, this, [this, &mainWindow] { OpenFor(mainWindow); });
  const QAction* guide = AddCommand(&mainWindow, "GuideAction", "Guide");
  connect(guide, &QAction::triggered, this, [this] { dialogs_.OpenGuide(kGuideContents); });
  AddPages(mainWindow);
  qApp->installEventFilter(this);
}

void Help::AddPages(QWidget& mainWindow) {
  for (const GuidePage& page : GuidePages()) {
    const std::string name = page.name;
    const QAction* action = AddCommand(&mainWindow, ("GuidePage-" + name).c_str(), page.title);
    connect(action, &QAction::triggered, this,
            [this, name] { dialogs_.OpenGuide(name + ".html"); });
  }
}

void Help::OpenFor(const QWidget& window) {
  dialogs_.OpenGuide(
      GuidePageOf(PlaceOf(window).toStdString(), window.windowTitle().toStdString()));
}

/// Boxes stop the main window's keys, so its F1 does not work in them.
bool Help::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) return false;
  const auto* key = static_cast<const QKeyEvent*>(event);
  if (key->key() != Qt::Key_F1 || key->modifiers() != Qt::NoModifier) return false;
  if (!key->isAutoRepeat()) OpenFor(WindowOf(*static_cast<const QWidget*>(watched)));
  return true;
}

}  // namespace repvolta
