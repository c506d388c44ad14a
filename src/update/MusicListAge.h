#pragma once

#include <string>

#include "app/ProgramState.h"

namespace repvolta {

/// What shows that the music has changed since the music list was compiled: a folder of songs below
/// the music path that is newer, or a listed song that is gone. "" when nothing shows it. Only a
/// bounded number of folders and songs is looked at, and no song is read. The program directory
/// must be current.
std::string WhyMusicListIsOld(const ProgramState& state);

}  // namespace repvolta
