#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>

#include "sound/WavReader.h"

#include "support/WavBytes.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using namespace std::string_view_literals;

std::vector<float> Samples(std::span<const Byte> file) { return ReadWav(file).samples; }

TEST(WavReader, Reads16BitSamples) {
  const Sound sound = ReadWav(WavBytes().Format(1, 16000, 16).Samples16({0, 16384, -32768}));
  EXPECT_EQ(sound.rate, 16000U);
  EXPECT_THAT(sound.samples, ElementsAre(0.0F, 0.5F, -1.0F));
}

TEST(WavReader, ReadsUnsigned8BitSamples) {
  EXPECT_THAT(Samples(WavBytes().Format(1, 8000, 8).Chunk("data", "\x80\xC0\x00"sv)),
              ElementsAre(0.0F, 0.5F, -1.0F));
}

TEST(WavReader, Reads24And32BitSamples) {
  EXPECT_THAT(Samples(WavBytes().Format(1, 8000, 24).Chunk("data", "\x00\x00\x40\x00\x00\x80"sv)),
              ElementsAre(0.5F, -1.0F));
  EXPECT_THAT(Samples(WavBytes().Format(1, 8000, 32).Chunk("data", "\x00\x00\x00\xC0"sv)),
              ElementsAre(-0.5F));
}

TEST(WavReader, ReadsFloatingPointSamples) {
  EXPECT_THAT(Samples(WavBytes().Format(1, 8000, 32, 3).Chunk("data", "\0\0\0\x3F\0\0\0\x41"sv)),
              ElementsAre(0.5F, 1.0F));
  EXPECT_THAT(Samples(WavBytes().Format(1, 8000, 64, 3).Chunk("data", "\0\0\0\0\0\0\xE0\xBF"sv)),
              ElementsAre(-0.5F));
}

TEST(WavReader, TakesWhatIsNoNumberAsSilence) {
  EXPECT_THAT(
      Samples(WavBytes().Format(1, 8000, 32, 3).Chunk("data", "\0\0\xC0\x7F\0\0\x80\x7F"sv)),
      ElementsAre(0.0F, 1.0F));
}

TEST(WavReader, MixesTheChannels) {
  EXPECT_THAT(Samples(WavBytes().Format(2, 8000, 16).Samples16({16384, 0, -16384, -16384})),
              ElementsAre(0.25F, -0.5F));
}

TEST(WavReader, MixesUpToEightChannels) {
  EXPECT_THAT(Samples(WavBytes().Format(8, 8000, 16).Samples16({16384, 0, 0, 0, 0, 0, 0, 16384})),
              ElementsAre(0.125F));
}

/// Why the file is refused; empty when it is not.
std::string RefusalOf(std::span<const Byte> file) {
  try {
    ReadWav(file);
  } catch (const WavError& error) {
    return error.what();
  }
  return "";
}

TEST(WavReader, SaysWhyAFileIsRefused) {
  EXPECT_EQ(RefusalOf(AsBytes("ID3")), "It is no WAV file");
  EXPECT_EQ(RefusalOf(WavBytes().Chunk("fmt ", "\1\0\1\0"sv).Samples16({1})),
            "Its format is not described");
  EXPECT_EQ(RefusalOf(WavBytes().Format(9, 8000, 16).Samples16({1})),
            "Its samples are of a kind that is not understood");
  EXPECT_EQ(RefusalOf(WavBytes().Format(1, 8000, 16)), "It holds no sound");
}

TEST(WavReader, LooksIntoTheExtensionForTheKindOfSamples) {
  EXPECT_THAT(Samples(WavBytes().ExtensibleFormat(1, 48000, 16).Samples16({16384})),
              ElementsAre(0.5F));
  EXPECT_THAT(Samples(WavBytes().ExtensibleFormat(1, 48000, 32, 3).Chunk("data", "\0\0\0\x3F"sv)),
              ElementsAre(0.5F));
}

TEST(WavReader, PassesOverOtherChunks) {
  EXPECT_THAT(Samples(WavBytes()
                          .Chunk("LIST", "odd\0"sv)
                          .Format(1, 8000, 16)
                          .Chunk("fact", "abc")
                          .Text("\0"sv)
                          .Samples16({16384})),
              ElementsAre(0.5F));
}

TEST(WavReader, TakesWhatIsThereWhenTheSizeSaysMore) {
  EXPECT_THAT(
      Samples(WavBytes().Format(1, 8000, 16).Text("data").U32(0x7FFFF000).U16(16384).Text("x")),
      ElementsAre(0.5F));
}

TEST(WavReader, ReadsAFileWithoutSamples) {
  EXPECT_THAT(Samples(WavBytes().Format(1, 8000, 16).Samples16({})), IsEmpty());
}

TEST(WavReader, RefusesWhatIsNoWavFile) {
  EXPECT_THROW(Samples(AsBytes("")), WavError);
  EXPECT_THROW(Samples(AsBytes("RIFF....AVI LIST")), WavError);
  EXPECT_THROW(Samples(AsBytes("RIFFxxxxWAV")), WavError);
}

TEST(WavReader, RefusesSamplesBeforeTheirFormat) {
  EXPECT_THROW(Samples(WavBytes().Samples16({1}).Format(1, 8000, 16)), WavError);
}

TEST(WavReader, RefusesAFormatChunkThatIsTooShort) {
  EXPECT_THROW(Samples(WavBytes().Chunk("fmt ", "\1\0\1\0"sv).Samples16({1})), WavError);
}

TEST(WavReader, RefusesKindsThatItDoesNotKnow) {
  struct Kind {
    std::uint16_t channels;
    std::uint32_t rate;
    std::uint16_t bits;
    std::uint16_t tag;
  };
  for (const Kind kind : {Kind{0, 8000, 16, 1}, Kind{9, 8000, 16, 1}, Kind{1, 0, 16, 1},
                          Kind{1, 400000, 16, 1}, Kind{1, 8000, 0, 1}, Kind{1, 8000, 12, 1},
                          Kind{1, 8000, 40, 1}, Kind{1, 8000, 16, 3}, Kind{1, 8000, 16, 2}}) {
    EXPECT_THROW(
        Samples(WavBytes().Format(kind.channels, kind.rate, kind.bits, kind.tag).Samples16({1})),
        WavError)
        << kind.channels << " " << kind.rate << " " << kind.bits << " " << kind.tag;
  }
}

TEST(WavReader, ReadsRatesFrom1To384Kilohertz) {
  const auto withRate = [](std::uint32_t rate) {
    return WavBytes().Format(1, rate, 16).Samples16({1});
  };
  EXPECT_EQ(ReadWav(withRate(1000)).rate, 1000U);
  EXPECT_EQ(ReadWav(withRate(384000)).rate, 384000U);
  EXPECT_THROW(ReadWav(withRate(999)), WavError);
  EXPECT_THROW(ReadWav(withRate(384001)), WavError);
}

TEST(WavReader, SurvivesEveryCutAndChangedByte) {
  const Bytes whole = WavBytes().ExtensibleFormat(2, 8000, 24).Chunk("data", "0123456789ab").Get();
  std::mt19937 random(1);
  for (int i = 0; i < 20000; ++i) {
    Bytes file(whole.begin(),
               whole.begin() + static_cast<std::ptrdiff_t>(random() % (whole.size() + 1)));
    for (int change = 0; change < 3 && !file.empty(); ++change) {
      file[random() % file.size()] = static_cast<Byte>(random());
    }
    try {
      EXPECT_LE(Samples(file).size(), file.size());
    } catch (const WavError&) {
    }
  }
}

TEST(WavSource, ReadsFromAnySample) {
  const WavBytes file =
      WavBytes().Format(2, 8000, 16).Samples16({0, 16384, -32768, -32768, 16384, 16384});
  const WavSource source(file);
  EXPECT_EQ(source.Rate(), 8000U);
  EXPECT_EQ(source.Size(), 3U);
  std::vector<float> samples(2);
  source.Read(1, samples);
  EXPECT_THAT(samples, ElementsAre(-1.0F, 0.5F));
}

}  // namespace
}  // namespace repvolta
