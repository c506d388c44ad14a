#pragma once

#include <string>
#include <vector>

#include "clips/VoiceCheck.h"
#include "editing/VoiceServices.h"
#include "voices/ChangeOfVoice.h"

namespace repvolta {

// The commands on whole voices; "" is the program's own. They make the program directory current
// and throw FileError when nothing was changed.

/// What there is now, also when another window has changed it.
VoicesHere VoicesOf(const VoiceServices& services);

/// Puts the clips of a voice in the places from which updates join them, and says which recordings
/// were kept where. Asks what to do when it is much louder or quieter than the clips in use.
/// Returns false, and nothing has changed, when the person cancels.
bool UseVoice(const VoiceServices& services, const std::string& voice);

/// Asks for a new name. Returns the name that the voice has then.
std::string RenameVoiceAsked(const VoiceServices& services, const std::string& voice);

/// Asks. Returns false when the voice is still there.
bool RemoveVoiceAsked(const VoiceServices& services, const std::string& voice);

/// Checks all the voice's own clips, in sight of the person; nothing when it was stopped.
std::vector<std::string> CheckOfVoice(const VoiceServices& services, const std::string& voice);

/// Plays a sentence in the voice. Throws SoundError, too. `ended` as SoundPlayer has it.
void ListenToVoice(const VoiceServices& services, const std::string& voice,
                   SoundPlayer::Ended ended);

}  // namespace repvolta
