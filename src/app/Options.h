#pragma once

#include <array>
#include <string>

#include "app/OptionLines.h"
#include "app/ProgramState.h"

namespace repvolta {

// The options that the settings file has no place for, in the options file beside it;
// docs/formats/options.md has a row for each.

/// An update also writes a play list for the player.
inline constexpr FlagOption kPlayListForPlayer{"play-list-for-player", false};

/// After the first update the window has said how the files get into the player.
inline constexpr FlagOption kPlayerHintShown{"player-hint-shown", false};

/// Where the player's disk was mounted at the last update; empty when the output path lay on the
/// same file system as "/".
inline constexpr TextOption kPlayerMountPoint{"player-mount-point", ""};

/// The days of the week on which updates are made, for what is said of growth ahead; without any,
/// they are made daily.
inline constexpr std::array<FlagOption, 7> kUpdatesOn = {{{"updates-on-monday", false},
                                                          {"updates-on-tuesday", false},
                                                          {"updates-on-wednesday", false},
                                                          {"updates-on-thursday", false},
                                                          {"updates-on-friday", false},
                                                          {"updates-on-saturday", false},
                                                          {"updates-on-sunday", false}}};

/// The microphone that "Record Words" listens to; empty for the desktop's default one.
inline constexpr TextOption kMicrophone{"microphone", ""};

/// In "Record Words", the word after a kept one is recorded without a key.
inline constexpr FlagOption kRecordNextByItself{"record-next-by-itself", false};

/// Reads the options from the file in the current directory; without a file all have their
/// defaults. Throws FileError when the file cannot be read; the options are then unchanged, and
/// SaveOptions refuses to overwrite the file.
void LoadOptions(ProgramState& state);

/// If another program has changed the file since it was loaded or saved here, takes over its lines,
/// except for the options that were changed here since then. The program directory must be current.
/// Throws FileError, and changes nothing, when the file cannot be read.
void ReloadChangedOptions(ProgramState& state);

/// Makes the program directory current, calls ReloadChangedOptions and writes the options, all or
/// nothing. Throws FileError; a file that could not be read, now or by LoadOptions, is kept.
void SaveOptions(ProgramState& state);

/// What a person should know of lines that cannot be understood and so have no effect; "" when
/// there are none.
std::string OddOptions(const OptionLines& options);

}  // namespace repvolta
