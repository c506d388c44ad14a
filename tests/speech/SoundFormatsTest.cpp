#include <gtest/gtest.h>
#include <string>

#include "speech/SoundFormats.h"

namespace repvolta {
namespace {

const std::pair<const char*, std::uint32_t> kRates[] = {
    {"8", 8000},   {"11", 11025}, {"12", 12000}, {"16", 16000}, {"22", 22050},
    {"24", 24000}, {"32", 32000}, {"44", 44100}, {"48", 48000}};

TEST(SoundFormats, NamesEveryRateWidthAndChannelCountInOrder) {
  auto format = kSoundFormats.begin();
  for (const auto& [name, rate] : kRates) {
    for (const std::uint16_t bits : {std::uint16_t{8}, std::uint16_t{16}}) {
      for (const std::uint16_t channels : {std::uint16_t{1}, std::uint16_t{2}}) {
        const std::string channelName = channels == 1 ? "Mono" : "Stereo";
        EXPECT_EQ(format->name,
                  "SAFT" + std::string(name) + "kHz" + std::to_string(bits) + "Bit" + channelName);
        EXPECT_EQ(format->format, (WavFormat{rate, bits, channels})) << format->name;
        ++format;
      }
    }
  }
  EXPECT_EQ(format, kSoundFormats.end());
}

TEST(SoundFormats, CodesRunFrom4To39) {
  for (int i = 0; i < 36; ++i) EXPECT_EQ(kSoundFormats[static_cast<std::size_t>(i)].code, i + 4);
}

TEST(SoundFormats, TheFormatOfTheClipsIsAtTheDefaultsPosition) {
  EXPECT_EQ(kSoundFormats[14].name, "SAFT16kHz16BitMono");
}

}  // namespace
}  // namespace repvolta
