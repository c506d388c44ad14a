#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "app/ProgramState.h"
#include "app/ProgressLog.h"
#include "instruction/SpokenWords.h"
#include "speech/SpeechSynthesizer.h"

namespace repvolta {

/// The request to speak `text` into the WAV file `file` with the voice, rate, volume and format of
/// `voice`.
SpeechRequest SpeechOf(const VoiceState& voice, const std::string& text, const std::string& file);

/// Speaks `text` into the WAV file `file` with the voice, rate, volume and format of `voice`.
/// Throws SpeechError or FileError.
void SpeakToFile(const VoiceState& voice, SpeechSynthesizer& speech, const std::string& text,
                 const std::string& file);

/// The clips of an exercise, with the values of its sets if the settings ask for them.
SpokenInstruction ClipsFor(const SettingsRecord& settings, const ExerciseRecord& exercise);

/// Joins the clips to the WAV file `target`. For the name it calls `beginWith`, which puts the
/// name's sound into `target`, and whose exceptions it passes on; it logs words that are missing.
void JoinClips(const std::vector<Clip>& clips, const std::string& target,
               const std::function<void(const Clip& name)>& beginWith, ProgressLog& log);

/// Writes the spoken instruction of an exercise to the WAV file `target`, joined from recorded
/// clips. A name without a recording is spoken once by the synthesiser and kept as a clip. Throws
/// SpeechError or FileError when there is no clip of the name and none can be made, and
/// std::out_of_range for an index outside the slots or more sets than slots.
void GenerateHumanVoiceInstruction(const ProgramState& state, std::int16_t exerciseIndex,
                                   const std::string& target, SpeechSynthesizer& speech,
                                   ProgressLog& log);

}  // namespace repvolta
