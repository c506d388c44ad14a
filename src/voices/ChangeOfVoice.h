#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "app/OptionLines.h"
#include "base/Bytes.h"
#include "voices/PutClips.h"
#include "voices/WholeVoices.h"

namespace repvolta {

// The program directory must be current. All calls throw FileError when a clip cannot be read.

/// Voices that differ by less sound equally loud.
inline constexpr double kHeardDifference = 2;  // LU

/// The whole voices and the one that is in use.
struct VoicesHere {
  std::string programVoice;  // the folder of the program's own clips; "" for none
  std::string inUse;         // "" is the program's own
};

/// What the options say is in use; "" also when there is no such voice any more.
std::string VoiceInUse(const OptionLines& options);

/// Where a voice's own clips lie; "" when the program has none.
std::string OwnFolderOf(const VoicesHere& here, const std::string& voice);

/// The loudness in LUFS of the clip in the middle of a folder's words, or of its names when it has
/// no words; nothing when none can be heard. Takes a moment.
std::optional<double> HeardLoudness(const std::string& folder);

/// Whole WAV files, by the clips as a voice spells them.
using VoiceClips = std::map<std::string, Bytes>;

/// The clips in the clip folder that would be lost with the next change of the voice: recordings
/// that are in no whole voice, and what a computer has spoken there as a person wished it. Those
/// whose level was changed are as they were before.
VoiceClips RecordingsInUse(const VoicesHere& here);

/// What is put in place when another voice is chosen.
struct ChangeOfVoice {
  ClipChange change;
  std::set<std::string> keptIn;   // the voices in which recordings are kept
  std::size_t kept = 0;           // how many
  std::vector<std::string> lent;  // words that the voice lacks and the program lends
};

struct ChoiceOfVoice {
  std::string voice;               // "" is the program's own
  std::string day;                 // today, "2026-11-22"
  std::optional<double> loudness;  // LUFS, to which all its clips are brought; nothing: as they are
};

/// First the recordings in use are kept: in the voice that is in use, or in kKeptRecordings. Then
/// the clips of the chosen voice take their places, and those of the program where it has none.
/// Names that neither has stay.
ChangeOfVoice PlanChangeOfVoice(const VoicesHere& here, const ChoiceOfVoice& choice);

enum class ClipsToWrite { kOwn, kAll };

/// The clips that are given to others as a voice: those that were recorded or taken in for it, or
/// all that an update would use with it.
VoiceClips ClipsOfVoice(const VoicesHere& here, const std::string& voice, ClipsToWrite which);

}  // namespace repvolta
