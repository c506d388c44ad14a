#include "mp3/GetPlayTime.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "mp3/RepvoltaMP3.h"

namespace repvolta {

std::int16_t GetPlayTime(const std::string& path) {
  if (TrimBlanks(path).empty()) return 0;
  RepvoltaMP3 mp3;
  mp3.SetFileName(path);
  return CheckedInt16(mp3.PlayTimeSeconds());
}

}  // namespace repvolta
