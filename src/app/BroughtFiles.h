#pragma once

#include <map>
#include <string>
#include <string_view>

#include "base/Bytes.h"

namespace repvolta {

/// The files that the program brought into the program directory, also those that an earlier
/// version brought, by the checksums in its list there: what differs from them, or is not in the
/// list, is the person's own.
class BroughtFiles {
 public:
  /// `programDirectory` ends with the separator; "" is the current one. Without a list, or with one
  /// that cannot be read, nothing was brought.
  explicit BroughtFiles(const std::string& programDirectory = "");

  /// True when the file with this path in the program directory still is as it was brought.
  bool Has(std::string_view path, std::span<const Byte> content) const;

 private:
  void Read(std::string_view line);

  std::multimap<std::string, std::string, std::less<>> sums_;  // in hexadecimal digits, by path
};

/// SHA-256.
std::string ChecksumOf(std::span<const Byte> content);

}  // namespace repvolta
