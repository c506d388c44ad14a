#pragma once

#include <cmath>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "clips/ClipSound.h"
#include "sound/WavReader.h"
#include "speech/SpeechEngine.h"
#include "speech/SpeechSynthesizer.h"

#include "support/TemporaryFolder.h"

namespace repvolta {

/// An engine that says a tone, and "silence" as silence.
class ToneEngine : public SpeechEngine {
 public:
  std::vector<EngineVoice> Voices() override { return voices; }

  Sound Speak(const std::string& text, const EngineVoice& voice, double slowness) override {
    if (text == "trouble") throw SpeechError("flite crashed");
    spoken.push_back(voice.id + ": " + text);
    const float level = text == "silence" ? 0.0F : 0.05F;
    Sound sound{8000, std::vector<float>(static_cast<std::size_t>(4000 * slowness))};
    for (std::size_t i = 0; i < sound.samples.size(); ++i) {
      sound.samples[i] = level * std::sin(0.3F * static_cast<float>(i));
    }
    return sound;
  }

  std::vector<EngineVoice> voices = {{"first", "rms"}, {"second", "slt"}};
  std::vector<std::string> spoken;
};

/// Expects a file of the format and loudness of a clip.
inline void ExpectClip(const std::string& path) {
  const Bytes file = GetFile(path);
  ASSERT_GT(file.size(), kWavHeaderSize);
  const auto dataSize = static_cast<std::uint32_t>(file.size() - kWavHeaderSize);
  EXPECT_EQ(Bytes(file.begin(), file.begin() + kWavHeaderSize), WavHeader(kClipFormat, dataSize));
  EXPECT_NEAR(JoinedLoudness(std::vector<Sound>{ReadWav(file)}), kClipLoudness, 1);
  EXPECT_LE(Peak(ReadWav(file)), 0.8913F);
}

}  // namespace repvolta
