#pragma once

#include <QWidget>

#include "editing/Editor.h"
#include "ui/Handlers.h"

namespace repvolta {

/// The commands on backups, for the menus. They belong to `window`, and are always enabled.
void AddBackupActions(QWidget& window, Editor& editor, Handlers& handlers);

}  // namespace repvolta
