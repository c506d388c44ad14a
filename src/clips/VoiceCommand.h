#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "speech/SpeechEngine.h"

namespace repvolta {

/// What repvolta-voice does with its arguments (without the program's name). Returns its exit
/// status: 0 done, 1 failed, 2 not called rightly; what went wrong is a line in `errors`.
int RunVoiceCommand(const std::vector<std::string>& arguments, SpeechEngine& engine,
                    std::ostream& output, std::ostream& errors);

}  // namespace repvolta
