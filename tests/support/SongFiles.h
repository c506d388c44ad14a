#pragma once

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

#include "sound/Sound.h"

#include "support/RunProgram.h"
#include "support/TemporaryFolder.h"

namespace repvolta {

/// Noise as dense as music, its parts one after another.
struct NoisePart {
  double seconds;
  float level;
};

inline Sound NoiseOf(const std::vector<NoisePart>& parts, std::uint32_t rate = 44100) {
  Sound sound{rate, {}};
  std::mt19937 random{1};
  for (const NoisePart& part : parts) {
    std::uniform_real_distribution<float> spread(-part.level, part.level);
    float last = 0;
    for (int i = 0; i < static_cast<int>(part.seconds * rate); ++i) {
      last = 0.8F * last + 0.2F * spread(random);
      sound.samples.push_back(std::clamp(2 * last, -1.0F, 1.0F));
    }
  }
  return sound;
}

/// Encodes a sound as a person's encoder would.
inline void PutSong(const std::string& path, const Sound& sound, std::uint16_t channels = 2,
                    std::vector<std::string> arguments = {"-b", "128"}) {
  const Bytes wav = EncodeWav(sound, {.rate = sound.rate, .bits = 16, .channels = channels});
  PutFile("song.wav", std::string(wav.begin(), wav.end()));
  arguments.insert(arguments.end(), {"--quiet", "song.wav", "song.encoded"});
  ASSERT_EQ(RunProgram("lame", arguments).status, 0);
  PutFile(path, GetTextFile("song.encoded"));
}

/// A song of some seconds; a level of 1 is about as loud as songs get.
inline void PutSteadySong(const std::string& path, float level = 1) {
  PutSong(path, NoiseOf({{6, level}}), 2, {"-f", "-b", "128"});
}

/// A clip of half a second; a level of 0.18 has about the loudness of the program's clips.
inline void PutToneClip(const std::string& path, float level) {
  Sound tone{16000, std::vector<float>(8000)};
  for (std::size_t i = 0; i < tone.samples.size(); ++i) {
    tone.samples[i] = level * std::sin(0.3F * static_cast<float>(i));
  }
  const Bytes wav = EncodeWav(tone, {.rate = 16000, .bits = 16, .channels = 1});
  PutFile(path, std::string(wav.begin(), wav.end()));
}

}  // namespace repvolta
