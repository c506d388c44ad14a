#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "speech/SpeechEngine.h"

namespace repvolta {

/// Runs repvolta-voice with its arguments (without the program's name). Returns the exit status: 0
/// done, 1 failed, 2 wrong usage. A failure writes one line to `errors`.
int RunVoiceCommand(const std::vector<std::string>& arguments, SpeechEngine& engine,
                    std::ostream& output, std::ostream& errors);

}  // namespace repvolta
