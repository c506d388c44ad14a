#pragma once

namespace repvolta {

/// Corrects the environment of this process, before anything reads it: where HOME names no folder,
/// it gets the home folder that the system has for this user; XDG folders that depend on the
/// current folder count as not named. A user without any home folder keeps HOME unset.
void CorrectUserFolders();

}  // namespace repvolta
