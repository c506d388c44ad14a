#pragma once

#include <string>
#include <string_view>

#include "base/Bytes.h"

namespace repvolta {

/// One entry of a ZIP file, stored, and the lies it can tell.
struct ZipItem {
  std::string name;
  std::string content;
  std::uint32_t mode = 0100644;   // as Unix has it
  std::uint16_t flags = 0x0800;   // the name is UTF-8; 1: encrypted
  std::uint16_t method = 0;       // how it says that it is compressed
  std::uint32_t claimed = 0;      // added to its size
  std::uint32_t checksumXor = 0;  // what is wrong with its checksum
};

/// Builds the bytes of a ZIP file entry by entry: ZipBytes().Add({"a.txt", "content"}).Get().
class ZipBytes {
 public:
  ZipBytes& Add(const ZipItem& item) {
    const auto offset = static_cast<std::uint32_t>(entries_.size());
    Put32(entries_, 0x04034B50);
    PutCommon(entries_, item);
    entries_ += item.name + item.content;
    Put32(directory_, 0x02014B50);
    Put16(directory_, 0x031E);  // made by Unix
    PutCommon(directory_, item);
    Put16(directory_, 0);  // comment
    Put16(directory_, 0);  // disk
    Put16(directory_, 0);
    Put32(directory_, item.mode << 16U);
    Put32(directory_, offset);
    directory_ += item.name;
    ++count_;
    return *this;
  }

  Bytes Get() const {
    std::string file = entries_ + directory_;
    Put32(file, 0x06054B50);
    Put32(file, 0);  // disks
    Put16(file, count_);
    Put16(file, count_);
    Put32(file, static_cast<std::uint32_t>(directory_.size()));
    Put32(file, static_cast<std::uint32_t>(entries_.size()));
    Put16(file, 0);  // comment
    const std::span<const Byte> bytes = AsBytes(file);
    return {bytes.begin(), bytes.end()};
  }

 private:
  static void Put16(std::string& to, std::uint32_t value) {
    to += static_cast<char>(value & 0xFFU);
    to += static_cast<char>(value >> 8U & 0xFFU);
  }
  static void Put32(std::string& to, std::uint32_t value) {
    Put16(to, value);
    Put16(to, value >> 16U);
  }

  /// What stands before an entry and in the directory.
  static void PutCommon(std::string& to, const ZipItem& item) {
    const auto size = static_cast<std::uint32_t>(item.content.size());
    Put16(to, 20);
    Put16(to, item.flags);
    Put16(to, item.method);
    Put32(to, 0x5B555000);  // 21 October 2025, 10:00
    Put32(to, Checksum(item.content) ^ item.checksumXor);
    Put32(to, size);
    Put32(to, size + item.claimed);
    Put16(to, static_cast<std::uint32_t>(item.name.size()));
    Put16(to, 0);  // extra field
  }

  static std::uint32_t Checksum(std::string_view content) {
    std::uint32_t sum = 0xFFFFFFFF;
    for (const char c : content) {
      sum ^= static_cast<Byte>(c);
      for (int bit = 0; bit < 8; ++bit) sum = sum >> 1U ^ ((sum & 1U) != 0 ? 0xEDB88320U : 0U);
    }
    return ~sum;
  }

  std::string entries_;
  std::string directory_;
  std::uint32_t count_ = 0;
};

}  // namespace repvolta
