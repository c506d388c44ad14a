#include "mp3/GetPlayTime.h"

#include "base/Numbers.h"
#include "base/Text.h"

namespace repvolta {

std::int16_t GetPlayTime(const std::string& path) {
  if (TrimBlanks(path).empty()) return 0;
  RepvoltaMP3 mp3;
  mp3.SetFileName(path);
  return PlayTimeOf(mp3);
}

std::int16_t PlayTimeOf(const RepvoltaMP3& song) { return CheckedInt16(song.PlayTimeSeconds()); }

}  // namespace repvolta
