#pragma once

#include <cstdint>
#include <vector>

#include "instruction/SpokenWords.h"
#include "update/ClipFiles.h"

namespace repvolta {

/// The WAV file that an instruction is joined to, before it is encoded.
struct InstructionSize {
  enum class Clips { kAllThere, kNameToBeSpoken };

  std::uint64_t bytes = 0;
  double seconds = 0;
  Clips clips = Clips::kAllThere;  // the length of a name that is yet to be spoken is estimated
};

/// Words without a file are left out, as when they are joined. Throws FileError.
InstructionSize SizeOfInstruction(const std::vector<Clip>& clips, ClipFiles& files);

/// About the size of the MP3 file that the encoder makes of it, without a tag.
std::uint64_t EncodedSize(const InstructionSize& instruction);

}  // namespace repvolta
