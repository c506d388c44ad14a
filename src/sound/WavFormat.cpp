#include "sound/WavFormat.h"

#include <algorithm>

namespace repvolta {
namespace {

void Put(Bytes& header, std::size_t offset, std::string_view text) {
  std::copy(text.begin(), text.end(), header.begin() + static_cast<std::ptrdiff_t>(offset));
}

template <std::unsigned_integral T>
void Put(Bytes& header, std::size_t offset, T value) {
  StoreLittleEndian(std::span(header).subspan(offset), value);
}

}  // namespace

Bytes WavHeader(const WavFormat& format, std::uint32_t dataSize) {
  const auto blockAlign = static_cast<std::uint16_t>(format.channels * (format.bits / 8));
  Bytes header(kWavHeaderSize);
  Put(header, 0, "RIFF");
  Put(header, kRiffSizeOffset, static_cast<std::uint32_t>(kWavHeaderSize - 8 + dataSize));
  Put(header, kWaveOffset, "WAVEfmt ");
  Put(header, kFormatSizeOffset, kFormatChunkSize);
  Put(header, kFormatTagOffset, kPcmTag);
  Put(header, kChannelsOffset, format.channels);
  Put(header, kSampleRateOffset, format.rate);
  Put(header, kByteRateOffset, format.rate * blockAlign);
  Put(header, kBlockAlignOffset, blockAlign);
  Put(header, kSampleBitsOffset, format.bits);
  Put(header, kExtensionSizeOffset, std::uint16_t{0});
  Put(header, kDataOffset, "data");
  Put(header, kDataSizeOffset, dataSize);
  return header;
}

}  // namespace repvolta
