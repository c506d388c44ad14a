#pragma once

#include "app/Records.h"
#include "editing/FolderQuestion.h"

namespace repvolta {

// What the two folder pickers say. Each begins at the path that is set.

FolderQuestion MusicFolderQuestion(const SettingsRecord& settings);
FolderQuestion OutputFolderQuestion(const SettingsRecord& settings);

}  // namespace repvolta
