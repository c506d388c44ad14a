#pragma once

#include <string>

#include "backup/WriteBackup.h"
#include "editing/Editor.h"
#include "editing/FileQuestion.h"

namespace repvolta {

/// Asks for a file, backs up into it, and says what it holds. Does nothing when the person cancels,
/// and leaves no new backup when the person stops it. Throws std::runtime_error when there is no
/// new backup.
void BackUp(Editor& editor);

/// The question for a backup's file with this suggested name, "" for one that is there.
FileQuestion BackupQuestion(const std::string& title, const std::string& file);

/// "12 workouts, 34 earlier versions, 1 own clip and the settings"; "nothing" without any.
std::string TextOfBackup(const std::map<BackupKind, int>& counts);

}  // namespace repvolta
