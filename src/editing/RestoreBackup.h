#pragma once

#include "editing/Editor.h"

namespace repvolta {

/// Asks for a backup, checks it, shows what it would change, and restores it, all or nothing; what
/// was there before is backed up first. Then everything is read and shown again. Does nothing when
/// the person cancels or stops it. Throws std::runtime_error when nothing was restored, and
/// RestoreUnfinished when files could not be put in place: then FinishPendingRestore or the next
/// start does.
void RestoreBackup(Editor& editor);

/// Comes before every command that uses the files or what is in memory. If a restore is not
/// finished, finishes it, shows what it brought, and throws WorkoutReplaced; throws
/// RestoreUnfinished when it still cannot.
void FinishPendingRestore(const Editor& editor);

}  // namespace repvolta
