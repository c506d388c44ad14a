#include "mp3/RepvoltaMP3.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <fcntl.h>
#include <limits>
#include <sys/stat.h>

#include "base/File.h"
#include "base/FileError.h"
#include "base/WholeFile.h"
#include "mp3/FileWindow.h"
#include "mp3/FirstMatch.h"
#include "mp3/Id3v2Format.h"
#include "mp3/MpegFormat.h"

namespace repvolta {
namespace {

bool StartsWith(std::span<const Byte> bytes, std::string_view marker) {
  return bytes.size() >= marker.size() &&
         std::equal(marker.begin(), marker.end(), AsText(bytes.first(marker.size())).begin());
}

/// The bytes at a position that counts from 1, with zeros past the end of the file.
template <std::size_t kCount>
std::array<Byte, kCount> BytesAt(FileWindow& window, std::int64_t position) {
  const auto available = window.From(static_cast<std::uint64_t>(position - 1), kCount);
  std::array<Byte, kCount> bytes{};
  std::copy_n(available.begin(), std::min(kCount, available.size()), bytes.begin());
  return bytes;
}

/// Of values: g++ 14 makes no wide registers of std::min, which takes and returns references.
constexpr Byte Smaller(Byte a, Byte b) { return a < b ? a : b; }

/// Not 0 when the bytes begin a header that DecodeFrameHeader accepts: all sync bits are set, and
/// version, layer, bit rate and sample rate are neither reserved nor free, which makes them 0 here.
constexpr Byte StartsFrame(Byte first, Byte second, Byte third) {
  const Byte version = (second ^ 0x08) & 0x18;
  const Byte layer = second & 0x06;
  const Byte bitRate = static_cast<Byte>(third + 0x10) & 0xE0;
  const Byte sampleRate = ~third & 0x0C;
  const Byte fields = Smaller(Smaller(version, layer), Smaller(bitRate, sampleRate));
  return static_cast<Byte>(fields * AsBit((first & (second | 0x1F)) == kFirstSyncByte));
}

/// FirstMatch for the start of a frame.
REPVOLTA_WIDE_REGISTERS std::size_t FirstFrameStart(std::span<const Byte> bytes,
                                                    std::size_t count) {
  return FirstMatch(bytes, count, StartsFrame);
}

/// The first position, at or after `position`, where a frame starts; `end` if there is none.
std::int64_t NextFrame(FileWindow& window, std::int64_t position, std::int64_t end) {
  while (position < end) {
    const auto bytes = window.From(static_cast<std::uint64_t>(position - 1), kFrameHeaderSize);
    if (bytes.size() < kFrameHeaderSize) return end;
    const auto count =
        std::min(bytes.size() - kFrameHeaderSize + 1, static_cast<std::size_t>(end - position));
    const std::size_t found = FirstFrameStart(bytes, count);
    position += static_cast<std::int64_t>(found);
    if (found < count) return position;
  }
  return end;
}

bool IsPlausibleTagHeader(std::span<const Byte> header) {
  const auto version = LoadLittleEndian<std::uint16_t>(header.subspan(kId3v2VersionOffset));
  const std::uint32_t size = LoadBigEndian32(header.subspan(kId3v2SizeOffset));
  return StartsWith(header, kId3v2Marker) && version < 255 && (size & kNotSyncsafe) == 0;
}

bool FitsInt32(std::int64_t value) {
  return value >= std::numeric_limits<std::int32_t>::min() &&
         value <= std::numeric_limits<std::int32_t>::max();
}

std::array<timespec, 2> TimesOf(const std::string& path) {
  struct stat status{};
  if (stat(path.c_str(), &status) != 0) throw FileError(path, "could not be read", errno);
  return {status.st_atim, status.st_mtim};
}

void SetTimes(const std::string& path, const std::array<timespec, 2>& times) {
  if (utimensat(AT_FDCWD, path.c_str(), times.data(), 0) == 0) return;
  // A disk that sets no times loses nothing by it.
  if (errno != EPERM && errno != ENOSYS && errno != ENOTSUP) {
    throw FileError(path, "could not be given its old times", errno);
  }
}

}  // namespace

/// The last bytes of a file, where tags can be; zeros replace what a short file lacks.
class RepvoltaMP3::FileTail {
 public:
  FileTail(const File& file, std::uint64_t size) {
    const std::size_t count = std::min<std::uint64_t>(size, bytes_.size());
    file.ReadAt(size - count, std::span(bytes_).last(count));
  }

  std::span<const Byte> Last(std::size_t count) const { return std::span(bytes_).last(count); }

 private:
  std::array<Byte, kId3v2HeaderSize + kId3v1Size> bytes_{};
};

void RepvoltaMP3::SetFileName(const std::string& path) {
  fileName_ = path;
  ReadMP3Header();
}

bool RepvoltaMP3::ReadMP3Header() {
  ResetMP3Info(AfterReset::kKeepsFileName);
  const File file = File::Open(fileName_, File::Access::kRead);
  const std::uint64_t size = file.SizeAtOpening();
  info_.fileLength = Checked(static_cast<std::int64_t>(size));
  const FileTail tail(file, size);
  ReadID3v1(tail);
  FileWindow window(file);
  if (!FindFirstFrame(window, ReadID3v2(window, tail))) {
    ResetMP3Info(AfterReset::kEmptiesFileName);
    return false;
  }
  ReadXing(window);
  return true;
}

void RepvoltaMP3::ResetMP3Info(AfterReset after) {
  info_ = {};
  if (after == AfterReset::kEmptiesFileName) fileName_.clear();
}

void RepvoltaMP3::ReadID3v1(const FileTail& tail) {
  if (info_.fileLength <= std::int32_t{kId3v1Size}) return;
  const auto bytes = tail.Last(kId3v1Size);
  if (!StartsWith(bytes, kId3v1Marker)) return;
  info_.hasID3v1 = true;
  std::memcpy(&info_.id3v1, bytes.data(), bytes.size());
  const char* comment = info_.id3v1.comment;
  info_.hasTrackNumber = comment[kTrackMarkOffset] == 0 && comment[kTrackOffset] != 0;
  if (info_.hasTrackNumber) info_.trackNumber = static_cast<Byte>(comment[kTrackOffset]);
}

/// Returns the position, from 1, at which the search for the audio begins.
std::int64_t RepvoltaMP3::ReadID3v2(FileWindow& window, const FileTail& tail) {
  const auto header = BytesAt<kId3v2HeaderSize>(window, 1);
  if (StartsWith(header, kId3v2Marker)) {
    AcceptID3v2(header, 0);
    return std::int64_t{info_.id3v2Size} + 1;
  }
  ReadID3v2Footer(tail);
  return 1;
}

void RepvoltaMP3::ReadID3v2Footer(const FileTail& tail) {
  const std::size_t behind = info_.hasID3v1 ? kId3v1Size : 0;
  const std::int64_t end = std::int64_t{info_.fileLength} - static_cast<std::int64_t>(behind);
  if (end - std::int64_t{kId3v2HeaderSize} < 1) return;
  const auto footer = tail.Last(behind + kId3v2HeaderSize).first(kId3v2HeaderSize);
  if (!StartsWith(footer, kId3v2FooterMarker)) return;
  AcceptID3v2(footer, end);
  info_.id3v2Offset = Checked(end - info_.id3v2Size);
}

void RepvoltaMP3::AcceptID3v2(std::span<const Byte> header, std::int64_t offset) {
  const std::int32_t size = DecodeSyncsafe(ReadBigEndianLong(header.subspan(kId3v2SizeOffset)));
  const bool hasFooter = (header[kId3v2FlagsOffset] & kId3v2HasFooter) != 0;
  info_.hasID3v2 = true;
  info_.id3v2Offset = Checked(offset);
  info_.id3v2Size = size + static_cast<std::int32_t>(kId3v2HeaderSize) * (hasFooter ? 2 : 1);
}

bool RepvoltaMP3::FindFirstFrame(FileWindow& window, std::int64_t position) {
  const std::int64_t end = info_.fileLength - kScanTail;
  while (position < end) {
    const auto header =
        LoadLittleEndian<std::uint32_t>(BytesAt<kFrameHeaderSize>(window, position));
    if (DecodeFrameHeader(header, Checked(position))) return true;
    position = embeddedTags_ == EmbeddedTags::kSearched ? SkipEmbeddedTag(window, position)
                                                        : NextFrame(window, position + 1, end);
  }
  return false;
}

/// The position after the tag that starts at `position`; the next position if none starts there.
std::int64_t RepvoltaMP3::SkipEmbeddedTag(FileWindow& window, std::int64_t position) {
  if (info_.hasID3v2) return position + 1;
  const auto header = BytesAt<kId3v2HeaderSize>(window, position);
  if (!IsPlausibleTagHeader(header)) return position + 1;
  AcceptID3v2(header, position - 1);
  return position + info_.id3v2Size;
}

bool RepvoltaMP3::DecodeFrameHeader(std::uint32_t header, std::int32_t position) {
  if (!IsFrameSync(header)) return false;
  std::array<Byte, kFrameHeaderSize> bytes{};
  StoreLittleEndian(std::span<Byte>(bytes), header & ~kFrameSync);
  const std::uint32_t fields = LoadBigEndian32(bytes);
  const std::uint32_t version = kVersionField.Of(fields);
  const std::uint32_t layer = kLayerField.Of(fields);
  const auto& bitRates = version == kVersion1Bits ? kBitRatesOfVersion1 : kBitRatesOfVersion2;

  info_.sampleRate = kSampleRates[version][kSampleRateField.Of(fields)];
  info_.bitRate = info_.sampleRate == 0 ? 0 : bitRates[layer][kBitRateField.Of(fields)];
  if (info_.bitRate == 0) return false;
  if (!FitsInt32(std::int64_t{info_.fileLength} - position)) return false;
  MeasureAudio(position);
  info_.mpegVersion = kMpegVersions[version];
  info_.layer = kLayers[layer];
  DescribeFrame(fields);
  info_.valid = true;
  return true;
}

void RepvoltaMP3::MeasureAudio(std::int32_t position) {
  const std::int64_t tag = info_.hasID3v1 ? std::int64_t{kId3v1Size} : 0;
  // One byte less than there is, since the position counts from 1 (quirk 79).
  info_.audioBytes = Checked(std::int64_t{info_.fileLength} - position - tag);
  // One constant for every layer and version, and no padding (quirk 80).
  info_.frameCount = Divide(info_.audioBytes, Divide(144000 * info_.bitRate, info_.sampleRate));
  info_.headerOffset = position - 1;
  info_.playTime = SecondsOfAudio();
}

void RepvoltaMP3::DescribeFrame(std::uint32_t header) {
  info_.padding = static_cast<Byte>(kPaddingField.Of(header));
  info_.isPrivate = kPrivateField.Of(header) != 0;
  // 144000 for every version, also for those whose frames are half as long (quirk 81).
  info_.frameLength = kLayerField.Of(header) == kLayer1Bits
                          ? (12000 * info_.bitRate / info_.sampleRate + info_.padding) * 4
                          : 144000 * info_.bitRate / info_.sampleRate + info_.padding;
  info_.channelMode = kChannelModes[kChannelModeField.Of(header)];
  info_.crcProtected = kProtectionField.Of(header) == 0;
  info_.copyright = kCopyrightField.Of(header) != 0;
  info_.original = kOriginalField.Of(header) != 0;
  info_.emphasis = kEmphases[kEmphasisField.Of(header)];
}

void RepvoltaMP3::ReadXing(FileWindow& window) {
  const std::int64_t position = std::int64_t{info_.headerOffset} + 1;
  if (position >= info_.fileLength - kXingTail) return;
  const auto xing = BytesAt<kXingSize>(window, position + kXingOffset);
  if (!StartsWith(xing, kXingMarker)) return;
  info_.vbr = true;
  // Without a count of frames the figures of the first frame stay (quirk 85).
  info_.valid = (xing[kXingFlagsByte] & kXingHasFrameCount) != 0;
  if (!info_.valid) return;
  info_.frameCount = ReadBigEndianLong(std::span(xing).subspan(kXingFrameCountOffset));
  info_.bitRate = AverageBitRate();
  info_.playTime = SecondsOfAudio();
}

std::int32_t RepvoltaMP3::AverageBitRate() const {
  if (info_.frameCount == 0) Divide(info_.fileLength, info_.frameCount);
  const double bits = static_cast<double>(info_.fileLength) / info_.frameCount * info_.sampleRate;
  // The tags count as audio here, and versions other than 1 get a twelfth of their bit rate
  // (quirk 84).
  const int factor = info_.mpegVersion == 1 ? 12 : 144;
  return Checked(std::llrint(bits / (factor * 1000))) / 12;
}

std::int32_t RepvoltaMP3::SecondsOfAudio() const {
  return Divide(Checked(std::int64_t{info_.audioBytes} * 8) / 1000, info_.bitRate);
}

bool RepvoltaMP3::IsFrameSync(std::uint32_t header) { return (header & kFrameSync) == kFrameSync; }

std::int32_t RepvoltaMP3::ReadBigEndianLong(std::span<const Byte> bytes) {
  return static_cast<std::int32_t>(LoadBigEndian32(bytes));
}

std::int32_t RepvoltaMP3::DecodeSyncsafe(std::int32_t bigEndian) {
  const auto value = static_cast<std::uint32_t>(bigEndian);
  return static_cast<std::int32_t>((value & 0x7FU) | (value >> 8 & 0x7FU) << 7 |
                                   (value >> 16 & 0x7FU) << 14 | (value >> 24 & 0x7FU) << 21);
}

std::int32_t RepvoltaMP3::Checked(std::int64_t value) const {
  if (!FitsInt32(value)) {
    throw std::overflow_error(fileName_ + " could not be examined: It is too long");
  }
  return static_cast<std::int32_t>(value);
}

std::int32_t RepvoltaMP3::Divide(std::int32_t dividend, std::int32_t divisor) const {
  if (divisor == 0) {
    throw DivisionByZero(fileName_ + " could not be examined: Its figures divide by zero");
  }
  return dividend / divisor;
}

void RepvoltaMP3::RemoveLeadingData(FileTimes times) {
  if (info_.headerOffset <= 0) return;
  const std::string path = fileName_;
  const auto timesBefore = TimesOf(path);
  {
    const File file = File::Open(path, File::Access::kRead);
    WholeFileWriter writer(path);
    writer.AppendRest(file, static_cast<std::uint64_t>(info_.headerOffset));
    writer.Commit();
  }
  try {
    ReadMP3Header();
  } catch (const DivisionByZero&) {
    // The average bit rate counts the whole file, so a shortened file's can be zero.
    ResetMP3Info(AfterReset::kEmptiesFileName);
  }
  if (times == FileTimes::kKept) SetTimes(path, timesBefore);
}

}  // namespace repvolta
