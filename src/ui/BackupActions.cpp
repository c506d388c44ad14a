#include "ui/BackupActions.h"

#include "editing/BackUp.h"
#include "editing/RestoreBackup.h"
#include "ui/Keys.h"

namespace repvolta {

void AddBackupActions(QWidget& window, Editor& editor, Handlers& handlers) {
  const QAction* backUp = AddCommand(&window, "BackUpAction", "Back Up ...");
  QObject::connect(backUp, &QAction::triggered, &window, [&editor, &handlers] {
    handlers.RunApart("There is no new backup; an older one of this name is as it was.",
                      [&editor] { BackUp(editor); });
  });
  const QAction* restore = AddCommand(&window, "RestoreBackupAction", "Restore a Backup ...");
  QObject::connect(restore, &QAction::triggered, &window, [&editor, &handlers] {
    handlers.RunApart("The backup could not be restored; everything is as it was.",
                      [&editor] { RestoreBackup(editor); });
  });
}

}  // namespace repvolta
