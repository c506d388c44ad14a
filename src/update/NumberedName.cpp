#include "update/NumberedName.h"

#include "base/FileNames.h"
#include "base/Text.h"

namespace repvolta {

std::string NumberedName(int number, std::string_view name) {
  std::string digits = std::to_string(number);
  if (digits.size() < 3) digits.insert(0, 3 - digits.size(), '0');
  return ("RV" + digits + "-").append(name);
}

std::string InstructionName(int number, Encoding encoding) {
  return NumberedName(number,
                      encoding == Encoding::kEncoderRun ? "Instructions.mp3" : "Instructions.WAV");
}

std::string SongCopyName(int number, const std::string& song) {
  return std::string(TrimBlanks(NumberedName(number, TrimBlanks(FileName(song)))));
}

}  // namespace repvolta
