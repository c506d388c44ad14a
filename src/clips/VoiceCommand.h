#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "clips/Speaker.h"

namespace repvolta {

/// Runs repvolta-voice with its arguments (without the program's name). Returns the exit status: 0
/// done, 1 failed or, for a check, a fault found, 2 wrong usage. A failure writes one line to
/// `errors`; so does, after the clips are made, each remark on their word list.
int RunVoiceCommand(const std::vector<std::string>& arguments, const NamedEngines& engines,
                    std::ostream& output, std::ostream& errors);

}  // namespace repvolta
