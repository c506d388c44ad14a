#include "support/Mp3Bytes.h"

#include <algorithm>
#include <array>

namespace repvolta {
namespace {

std::uint32_t SevenBitsAByte(std::uint32_t size) {
  return (size & 0x7FU) | (size << 1 & 0x7F00U) | (size << 2 & 0x7F0000U) |
         (size << 3 & 0x7F000000U);
}

std::string BigEndian(std::uint32_t value, std::size_t bytes) {
  std::string text;
  for (std::size_t i = bytes; i > 0; --i) text += static_cast<char>(value >> 8 * (i - 1));
  return text;
}

}  // namespace

std::uint32_t FrameFields::LittleEndian() const {
  const std::uint32_t header = 0xFFE00000U | version << 19 | layer << 17 | protection << 16 |
                               bitRate << 12 | sampleRate << 10 | padding << 9 | isPrivate << 8 |
                               channelMode << 6 | copyright << 3 | original << 2 | emphasis;
  std::array<Byte, 4> bytes{};
  StoreBigEndian32(bytes, header);
  return LoadLittleEndian<std::uint32_t>(bytes);
}

Id3v2Bytes& Id3v2Bytes::Frame(std::string_view identifier, std::string_view data) {
  body_ += identifier;
  body_ += BigEndian(static_cast<std::uint32_t>(data.size()), version_ == 2 ? 3 : 4);
  if (version_ != 2) body_ += std::string(2, '\0');
  body_ += data;
  return *this;
}

Id3v2Bytes& Id3v2Bytes::Text(std::string_view identifier, std::string_view text) {
  return Frame(identifier, std::string(1, '\0').append(text));
}

Id3v2Bytes& Id3v2Bytes::Padding(std::size_t count) {
  body_.append(count, '\0');
  return *this;
}

Id3v2Bytes& Id3v2Bytes::ClaimSize(std::uint32_t size) {
  claimed_ = size;
  claims_ = true;
  return *this;
}

Id3v2Bytes& Id3v2Bytes::Syncsafe() {
  syncsafe_ = true;
  return *this;
}

Bytes Id3v2Bytes::Build(std::string_view marker) const {
  const auto size = claims_ ? claimed_ : static_cast<std::uint32_t>(body_.size());
  std::string tag(marker);
  tag += static_cast<char>(version_);
  tag += '\0';
  tag += static_cast<char>(flags_);
  tag += BigEndian(syncsafe_ ? SevenBitsAByte(size) : size, 4);
  tag += body_;
  return {tag.begin(), tag.end()};
}

Mp3Bytes& Mp3Bytes::Garbage(std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) bytes_.push_back(static_cast<Byte>('a' + i % 26));
  return *this;
}

Mp3Bytes& Mp3Bytes::Zeros(std::size_t count) {
  bytes_.resize(bytes_.size() + count);
  return *this;
}

Mp3Bytes& Mp3Bytes::Raw(std::span<const Byte> bytes) {
  bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
  return *this;
}

Mp3Bytes& Mp3Bytes::Footer(const Id3v2Bytes& tag) {
  return Raw(std::span<const Byte>(tag.Build("3DI")).first(10));
}

Mp3Bytes& Mp3Bytes::Frame(const FrameFields& fields, std::size_t size) {
  lastFrame_ = bytes_.size();
  Zeros(size);
  StoreLittleEndian(std::span<Byte>(bytes_).subspan(lastFrame_), fields.LittleEndian());
  return *this;
}

Mp3Bytes& Mp3Bytes::Frames(std::size_t count, const FrameFields& fields) {
  for (std::size_t i = 0; i < count; ++i) Frame(fields);
  return *this;
}

Mp3Bytes& Mp3Bytes::Xing(std::uint32_t flags, std::uint32_t frameCount, std::size_t offsetInFrame) {
  const std::string header = "Xing" + BigEndian(flags, 4) + BigEndian(frameCount, 4);
  std::copy(header.begin(), header.end(),
            bytes_.begin() + static_cast<std::ptrdiff_t>(lastFrame_ + offsetInFrame));
  return *this;
}

Mp3Bytes& Mp3Bytes::Id3v1(std::string_view title, Byte track) {
  std::string tag("TAG");
  tag += title;
  tag.resize(128);
  tag[126] = static_cast<char>(track);
  return Raw(tag);
}

}  // namespace repvolta
