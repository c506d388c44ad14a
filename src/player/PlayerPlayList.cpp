#include "player/PlayerPlayList.h"

#include <algorithm>
#include <exception>
#include <stdexcept>
#include <string_view>

#include "base/SingleByteText.h"
#include "mp3/GetPlayTime.h"

namespace repvolta {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

std::string WithoutControls(std::string text) {
  const auto isControl = [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; };
  std::ranges::replace_if(text, isControl, ' ');
  return text;
}

}  // namespace

void PlayerPlayList::Add(const PlayerFile& file) {
  if (file.name.find_first_of(kLineEnd) == std::string::npos) files_.push_back(file);
}

std::string PlayerPlayList::Text() const {
  std::string text("#EXTM3U");
  text += kLineEnd;
  for (const PlayerFile& file : files_) {
    text.append("#EXTINF:").append(std::to_string(file.seconds)).append(",");
    text.append(WithoutControls(AsUtf8(file.title))).append(kLineEnd);
    text.append(AsUtf8(file.name)).append(kLineEnd);
  }
  return text;
}

int SecondsOf(const std::string& path) {
  try {
    RepvoltaMP3 song;
    song.SetFileName(path);
    return SecondsOf(song);
  } catch (const std::exception&) {
    return kUnknownSeconds;
  }
}

int SecondsOf(const RepvoltaMP3& song) {
  try {
    const int seconds = PlayTimeOf(song);
    return seconds > 0 ? seconds : kUnknownSeconds;
  } catch (const std::overflow_error&) {
    return kUnknownSeconds;
  }
}

}  // namespace repvolta
