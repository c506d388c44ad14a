#include "clips/MeasuredClip.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <vector>

#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/WholeFile.h"
#include "clips/ClipSound.h"
#include "clips/Word.h"
#include "sound/WavReader.h"

namespace repvolta {
namespace {

constexpr std::size_t kLargestClip = std::size_t{4} * 1024 * 1024;  // two minutes and some
constexpr float kFullScale = 32766.5F / 32768.0F;
constexpr int kSamplesOfAClippedPeak = 3;  // in a row
constexpr double kFarFromOthers = 5;       // LU

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

}  // namespace

MeasuredClip MeasureClip(const std::string& folder, const std::string& name) {
  const auto found = [&name](ClipFault fault, const std::string& words) {
    return MeasuredClip{name, ClipFinding{name, fault, words}, std::nullopt};
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

double MiddleLoudness(std::span<const MeasuredClip> clips) {
  std::vector<double> all;
  all.reserve(clips.size());
  for (const MeasuredClip& clip : clips) {
    if (clip.loudness) all.push_back(*clip.loudness);
  }
  if (all.empty()) return -std::numeric_limits<double>::infinity();
  const auto middle = all.begin() + std::ssize(all) / 2;
  std::ranges::nth_element(all, middle);
  return *middle;
}

std::optional<ClipFinding> FindingBeside(const MeasuredClip& clip, double middle) {
  if (clip.finding || !clip.loudness) return clip.finding;
  const double difference = *clip.loudness - middle;
  if (std::abs(difference) <= kFarFromOthers) return std::nullopt;
  const bool isLoud = difference > 0;
  return ClipFinding{clip.file, isLoud ? ClipFault::kTooLoud : ClipFault::kTooQuiet,
                     std::string("is ") + (isLoud ? "louder" : "quieter") +
                         " than the other clips by " +
                         std::to_string(std::lround(std::abs(difference))) + " dB"};
}

}  // namespace repvolta
