#pragma once

#include <string>
#include <vector>

#include "app/OptionLines.h"

namespace repvolta {

// A whole voice is a folder of clips below "voices/", named after it: the words, and the names of
// exercises in "exercise/". An update never reads there: the clips of the voice that is in use lie
// in the clip folder as well. The program directory must be current.

/// The whole voice whose clips were put in place last; "" is the program's own.
inline constexpr TextOption kVoiceInUse{"voice-in-use", ""};

/// What the person calls the clips that came with the program; no whole voice can have this name.
inline constexpr const char* kTheProgramsVoice = "The program's voice";

/// Ends with the separator.
std::string FolderOfVoice(const std::string& voice);

/// In name order, without regard to case. Throws FileError.
std::vector<std::string> ListVoices();

/// Why no voice can get this name, in a sentence; "" when it can. A voice may keep its own name,
/// `present`, in another case. Throws FileError.
std::string WhyNoVoiceName(const std::string& name, const std::string& present = "");

/// A name that a voice can get, like `wanted`: with a number behind it when it is taken. Throws
/// FileError.
std::string FreeVoiceName(const std::string& wanted);

/// Throws FileError; then the voice has its old name.
void RenameVoice(const std::string& from, const std::string& to);

/// Removes all of the voice's clips. Throws FileError; then it is whole, or there is no such voice
/// any more.
void RemoveVoice(const std::string& voice);

/// The clips in a folder of clips, which ends with the separator, as the folder spells them:
/// "300.wav", "exercise/Squat.WAV". The words first, in name order. Throws FileError.
std::vector<std::string> ClipsIn(const std::string& folder);

}  // namespace repvolta
