#pragma once

#include <bit>
#include <concepts>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace repvolta {

using Byte = std::uint8_t;
using Bytes = std::vector<Byte>;

inline std::span<const Byte> AsBytes(std::string_view text) {
  return {reinterpret_cast<const Byte*>(text.data()), text.size()};
}

inline std::string AsText(std::span<const Byte> bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

/// The little-endian value in the first sizeof(T) bytes. Throws std::out_of_range when there are
/// fewer.
template <std::unsigned_integral T>
T LoadLittleEndian(std::span<const Byte> bytes) {
  if (bytes.size() < sizeof(T)) throw std::out_of_range("value runs past the end of the data");
  T value = 0;
  for (std::size_t i = 0; i < sizeof(T); ++i) value = static_cast<T>(value | T{bytes[i]} << 8 * i);
  return value;
}

/// Writes `value` into the first sizeof(T) bytes, low byte first. Throws std::out_of_range when
/// there are fewer.
template <std::unsigned_integral T>
void StoreLittleEndian(std::span<Byte> bytes, T value) {
  if (bytes.size() < sizeof(T)) throw std::out_of_range("value runs past the end of the data");
  for (std::size_t i = 0; i < sizeof(T); ++i) bytes[i] = static_cast<Byte>(value >> 8 * i);
}

/// The big-endian value in the first four bytes. Throws std::out_of_range when there are fewer.
inline std::uint32_t LoadBigEndian32(std::span<const Byte> bytes) {
  const auto value = LoadLittleEndian<std::uint32_t>(bytes);
  return value >> 24 | (value >> 8 & 0xFF00U) | (value << 8 & 0xFF0000U) | value << 24;
}

/// Writes `value` into the first four bytes, high byte first. Throws std::out_of_range when there
/// are fewer.
inline void StoreBigEndian32(std::span<Byte> bytes, std::uint32_t value) {
  StoreLittleEndian(bytes,
                    value >> 24 | (value >> 8 & 0xFF00U) | (value << 8 & 0xFF0000U) | value << 24);
}

}  // namespace repvolta
