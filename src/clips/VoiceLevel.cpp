#include "clips/VoiceLevel.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <span>
#include <vector>

#include "base/FileNames.h"
#include "base/ProgramFiles.h"
#include "clips/ClipSound.h"
#include "clips/MeasuredClip.h"
#include "clips/WordClips.h"
#include "sound/WavReader.h"

namespace repvolta {
namespace {

/// With fewer words, the one in the middle says little about a voice.
constexpr std::ptrdiff_t kFewestWords = 5;

constexpr double kNoDifference = 0.005;  // LU

}  // namespace

double LoudnessOfVoice(const std::string& folder) {
  const std::vector<std::string> words = WordClips();
  std::vector<MeasuredClip> clips;
  clips.reserve(words.size());
  for (const std::string& word : words) clips.push_back(MeasureClip(folder, word));
  const auto isHeard = [](const MeasuredClip& clip) { return clip.loudness.has_value(); };
  if (std::ranges::count_if(clips, isHeard) < kFewestWords) return kClipLoudness;
  return MiddleLoudness(clips);
}

std::string VoiceOfClip(const std::string& path) {
  const std::string absolute = std::filesystem::absolute(path).lexically_normal();
  const std::string folder(WithoutSeparator(FolderOf(absolute)));
  const bool isName = FileName(folder) + "/" == kNameClipSubfolder;
  return isName ? WithoutSeparator(FolderOf(folder)) : folder;
}

Bytes LouderClip(const Bytes& clip, double difference) {
  if (std::abs(difference) < kNoDifference) return clip;
  try {
    std::vector<Sound> sounds = {ReadWav(clip)};
    if (sounds.front().rate != kClipFormat.rate) return clip;
    const double loudness = JoinedLoudness(sounds);
    if (!std::isfinite(loudness)) return clip;
    LevelClips(sounds, loudness + difference);
    return EncodeWav(sounds.front(), kClipFormat);
  } catch (const WavError&) {
    return clip;
  }
}

}  // namespace repvolta
