#include "clips/VoiceCheck.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <limits>
#include <optional>
#include <span>

#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/ProgramFiles.h"
#include "base/WholeFile.h"
#include "clips/ClipSound.h"
#include "clips/Word.h"
#include "clips/WordClips.h"
#include "sound/WavReader.h"

namespace repvolta {
namespace {

constexpr std::size_t kLargestClip = std::size_t{4} * 1024 * 1024;  // two minutes and some
constexpr float kFullScale = 32766.5F / 32768.0F;
constexpr int kSamplesOfAClippedPeak = 3;  // in a row
constexpr double kFarFromOthers = 5;       // LU

/// What one clip is by itself.
struct Measured {
  std::string file;
  std::optional<ClipFinding> finding;
  std::optional<double> loudness;  // nothing for a clip that says nothing
};

/// The numbers in the header that depend on the length of the sound.
constexpr std::array kSizeOffsets = {kRiffSizeOffset, kDataSizeOffset};

bool HasHeaderOfAClip(const Bytes& file) {
  if (file.size() < kWavHeaderSize) return false;
  Bytes header(file.begin(), file.begin() + kWavHeaderSize);
  Bytes wanted = WavHeader(kClipFormat, 0);
  for (const std::size_t offset : kSizeOffsets) {
    std::ranges::fill(std::span(header).subspan(offset, 4), Byte{0});
    std::ranges::fill(std::span(wanted).subspan(offset, 4), Byte{0});
  }
  return header == wanted;
}

bool IsClipped(const Sound& sound) {
  int row = 0;
  return std::ranges::any_of(sound.samples, [&row](float sample) {
    row = std::abs(sample) >= kFullScale ? row + 1 : 0;
    return row == kSamplesOfAClippedPeak;
  });
}

std::string WhyNoWav(const Bytes& file) {
  try {
    const WavSource source(file);
    return "";
  } catch (const WavError& error) {
    return error.what();
  }
}

Measured Measure(const std::string& folder, const std::string& name) {
  const auto found = [&name](ClipFault fault, const std::string& words) {
    return Measured{name, ClipFinding{name, fault, words}, std::nullopt};
  };
  const std::optional<std::string> path = FindFile(folder + "/" + name);
  if (!path) return found(ClipFault::kMissing, "is missing");
  Bytes file;
  try {
    file = ReadWholeFile(*path, kLargestClip + 1);
  } catch (const FileError& error) {
    return found(ClipFault::kUnreadable, "could not be read: " + error.Reason());
  }
  if (file.size() > kLargestClip) {
    return found(ClipFault::kTooLong, "lasts longer than two minutes");
  }
  if (!HasHeaderOfAClip(file)) {
    const std::string reason = WhyNoWav(file);
    if (!reason.empty()) return found(ClipFault::kNoWav, "cannot be used: " + reason);
    return found(ClipFault::kOtherFormat,
                 "is not in the format of a clip; \"repvolta-voice convert\" makes one of it");
  }
  const Sound sound = ReadWav(file);
  if (sound.samples == WordlessClip().samples) return {name, std::nullopt, std::nullopt};
  if (Peak(sound) < kSilence) return found(ClipFault::kSilent, "has only silence");
  if (IsClipped(sound)) return found(ClipFault::kClipped, "is distorted: it was recorded too loud");
  return {name, std::nullopt, JoinedLoudness(std::span(&sound, 1))};
}

/// That of the clip in the middle; minus infinity when none can be heard.
double MiddleLoudness(const std::vector<Measured>& clips) {
  std::vector<double> all;
  all.reserve(clips.size());
  for (const Measured& clip : clips) {
    if (clip.loudness) all.push_back(*clip.loudness);
  }
  if (all.empty()) return -std::numeric_limits<double>::infinity();
  const auto middle = all.begin() + std::ssize(all) / 2;
  std::ranges::nth_element(all, middle);
  return *middle;
}

/// Judges a clip beside the others.
std::optional<ClipFinding> FindingOf(const Measured& clip, double middle) {
  if (clip.finding || !clip.loudness) return clip.finding;
  const double difference = *clip.loudness - middle;
  if (std::abs(difference) <= kFarFromOthers) return std::nullopt;
  const bool isLoud = difference > 0;
  return ClipFinding{clip.file, isLoud ? ClipFault::kTooLoud : ClipFault::kTooQuiet,
                     std::string("is ") + (isLoud ? "louder" : "quieter") +
                         " than the other clips by " +
                         std::to_string(std::lround(std::abs(difference))) + " dB"};
}

bool IsThere(const Measured& clip) {
  return !clip.finding || clip.finding->fault != ClipFault::kMissing;
}

}  // namespace

VoiceCheck CheckVoice(const std::string& folder) {
  if (!FolderExists(folder)) throw FileError(folder, "could not be read", ENOENT);
  std::vector<Measured> clips;
  for (const std::string& word : WordClips()) clips.push_back(Measure(folder, word));
  VoiceCheck check;
  check.words = static_cast<std::size_t>(std::ranges::count_if(clips, IsThere));
  const std::vector<std::string> names =
      ListFiles(folder + "/" + kNameClipSubfolder, kNameClipExtension);
  check.names = names.size();
  for (const std::string& name : names) clips.push_back(Measure(folder, kNameClipSubfolder + name));
  check.loudness = MiddleLoudness(clips);
  for (const Measured& clip : clips) {
    const std::optional<ClipFinding> finding = FindingOf(clip, check.loudness);
    if (finding) check.findings.push_back(*finding);
  }
  return check;
}

}  // namespace repvolta
