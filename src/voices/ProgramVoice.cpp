#include "voices/ProgramVoice.h"

#include <cmath>
#include <utility>

#include "base/FileNames.h"
#include "base/WholeFile.h"
#include "clips/VoiceLevel.h"

namespace repvolta {
namespace {

constexpr std::size_t kLongestClip = 32U << 20;  // bytes

/// A few other words in the middle of a voice are no other level.
constexpr double kAsLoud = 0.5;  // LU

}  // namespace

ProgramVoice::ProgramVoice(std::string folder) : folder_(std::move(folder)) {}

bool ProgramVoice::Has(const std::string& file) const {
  return !folder_.empty() && FindFile(folder_ + file).has_value();
}

std::optional<Bytes> ProgramVoice::ClipOf(const std::string& file) const {
  if (folder_.empty()) return std::nullopt;
  const auto path = FindFile(folder_ + file);
  if (!path) return std::nullopt;
  return ReadWholeFile(*path, kLongestClip);
}

std::optional<NewClip> ProgramVoice::ClipFor(const std::string& file, double loudness) {
  auto content = ClipOf(file);
  if (!content) return std::nullopt;
  if (!loudness_) loudness_ = LoudnessOfVoice(folder_);
  const double difference = loudness - *loudness_;
  if (std::abs(difference) >= kAsLoud) *content = LouderClip(*content, difference);
  return NewClip{
      .file = file, .content = std::move(*content), .origin = {.owner = ClipOwner::kProgram}};
}

}  // namespace repvolta
