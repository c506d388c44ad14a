#include "clips/RoomSound.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>
#include <span>
#include <vector>

#include "clips/RumbleFilter.h"

namespace repvolta {
namespace {

using Samples = std::span<const float>;

// In seconds.
constexpr double kPiece = 0.2;  // whole waves of 50 and of 60 Hz
constexpr double kBetweenPieces = 0.05;
/// The key that started the take; the word's first and last moments, and its echo.
constexpr double kKey = 0.1;
constexpr double kBeforeWord = 0.1;
constexpr double kBehindWord = 0.2;

/// Above them the mains are no louder than a quiet room.
constexpr int kHarmonics = 12;

double MeanOf(Samples piece) {
  return std::accumulate(piece.begin(), piece.end(), 0.0) / static_cast<double>(piece.size());
}

/// The mean square without an offset.
double PowerOf(Samples piece) {
  const double mean = MeanOf(piece);
  const double sum = std::accumulate(piece.begin(), piece.end(), 0.0, [mean](double all, double x) {
    return all + (x - mean) * (x - mean);
  });
  return sum / static_cast<double>(piece.size());
}

/// The mean square of a tone in the piece.
double PowerOfTone(Samples piece, double cyclesPerSample) {
  const double step = 2 * std::numbers::pi * cyclesPerSample;
  double inPhase = 0;
  double across = 0;
  const double mean = MeanOf(piece);
  for (std::size_t i = 0; i < piece.size(); ++i) {
    const double angle = step * static_cast<double>(i);
    inPhase += (piece[i] - mean) * std::cos(angle);
    across += (piece[i] - mean) * std::sin(angle);
  }
  const auto size = static_cast<double>(piece.size());
  return 2 * (inPhase * inPhase + across * across) / (size * size);
}

double PowerOfHum(Samples piece, std::uint32_t rate) {
  double strongest = 0;
  for (const double mains : {50.0, 60.0}) {
    double hum = 0;
    for (int i = 1; i <= kHarmonics; ++i) hum += PowerOfTone(piece, mains * i / rate);
    strongest = std::max(strongest, hum);
  }
  return strongest;
}

/// Where the pieces of a sound begin that have nothing of the word.
std::vector<std::size_t> PiecesAround(const Sound& sound, const std::optional<SoundSpan>& word) {
  const auto count = [&sound](double seconds) {
    return static_cast<std::size_t>(std::lround(seconds * sound.rate));
  };
  std::vector<std::size_t> pieces;
  const auto add = [&](std::size_t begin, std::size_t end) {
    for (; begin + count(kPiece) <= end; begin += count(kBetweenPieces)) pieces.push_back(begin);
  };
  const std::size_t size = sound.samples.size();
  if (!word) {
    add(count(kKey), size);
  } else {
    add(count(kKey), word->begin - std::min(word->begin, count(kBeforeWord)));
    add(word->end + count(kBehindWord), size);
  }
  return pieces;
}

std::vector<float> WithoutRumble(const Sound& sound) {
  RumbleFilter filter(sound.rate);
  std::vector<float> samples(sound.samples.size());
  std::ranges::transform(sound.samples, samples.begin(),
                         [&filter](float sample) { return filter.Next(sample); });
  return samples;
}

}  // namespace

std::optional<RoomSound> RoomAround(const Sound& sound, const std::optional<SoundSpan>& word) {
  std::vector<std::size_t> pieces = PiecesAround(sound, word);
  if (pieces.empty()) return std::nullopt;
  const auto size = static_cast<std::size_t>(std::lround(kPiece * sound.rate));
  const std::vector<float> voice = WithoutRumble(sound);
  const auto powerAt = [&](std::size_t begin) {
    return PowerOf(Samples(voice).subspan(begin, size));
  };
  // The one in the middle, so that a click or a step does not count.
  const auto middle = pieces.begin() + std::ssize(pieces) / 2;
  std::ranges::nth_element(pieces, middle, {}, powerAt);
  const double hum = PowerOfHum(Samples(sound.samples).subspan(*middle, size), sound.rate);
  const double power = powerAt(*middle);
  const double heardHum = PowerOfHum(Samples(voice).subspan(*middle, size), sound.rate);
  return RoomSound{Decibels(std::sqrt(hum)), Decibels(std::sqrt(std::max(power - heardHum, 0.0)))};
}

}  // namespace repvolta
