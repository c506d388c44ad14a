#include "ui/UndoActions.h"

#include "editing/Undo.h"
#include "ui/Keys.h"
#include "ui/Mnemonics.h"

namespace repvolta {
namespace {

/// The name of an exercise may have a "&", which must not become a mnemonic.
QString TextOf(const char* command, const std::string& step) {
  const QString name = QString::fromStdString(step).replace("&", "&&");
  return name.isEmpty() ? QString(command) : QString(command) + " " + name;
}

void Show(QAction& action, const char* command, const std::string& step, bool busy) {
  const QString text = TextOf(command, step);
  // The menu has given the text a mnemonic.
  if (WithoutMnemonic(action.text()) != text) action.setText(text);
  action.setEnabled(!step.empty() && !busy);
}

}  // namespace

UndoActions::UndoActions(QWidget& window, Editor& editor, Handlers& handlers,
                         const std::function<void()>& afterwards)
    : editor_(editor),
      undo_(AddCommand(&window, "UndoAction", "Undo", Qt::CTRL | Qt::Key_Z)),
      redo_(AddCommand(&window, "RedoAction", "Redo", Qt::CTRL | Qt::SHIFT | Qt::Key_Z)) {
  const auto connect = [&](QAction* action, const char* failure, void (*command)(const Editor&)) {
    QObject::connect(action, &QAction::triggered, &window,
                     [&editor, &handlers, afterwards, failure, command] {
                       handlers.Run(failure, [&] {
                         command(editor);
                         afterwards();
                       });
                     });
  };
  connect(undo_, "The change could not be undone.", UndoAction_Trigger);
  connect(redo_, "The change could not be made again.", RedoAction_Trigger);
}

void UndoActions::Refresh(bool busy) {
  Show(*undo_, "Undo", editor_.history->UndoName(), busy);
  Show(*redo_, "Redo", editor_.history->RedoName(), busy);
}

}  // namespace repvolta
