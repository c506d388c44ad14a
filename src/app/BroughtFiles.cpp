#include "app/BroughtFiles.h"

#include <QCryptographicHash>
#include <algorithm>

#include "base/FileError.h"
#include "base/Lines.h"
#include "base/ProgramFiles.h"

namespace repvolta {
namespace {

constexpr std::size_t kDigits = 64;
constexpr std::string_view kBetween = "  ";  // a checksum and its path
constexpr std::string_view kEarlier = "# ";  // before a line of an earlier version

}  // namespace

BroughtFiles::BroughtFiles(const std::string& programDirectory) {
  try {
    ForEachLine(programDirectory + kBroughtList, [&](std::string_view line) {
      Read(line);
      return true;
    });
  } catch (const FileError&) {
    // A clip too many in a backup is better than one too few.
    sums_.clear();
  }
}

void BroughtFiles::Read(std::string_view line) {
  if (line.starts_with(kEarlier)) line.remove_prefix(kEarlier.size());
  if (line.size() <= kDigits + kBetween.size()) return;
  if (line.substr(kDigits, kBetween.size()) != kBetween) return;
  sums_.emplace(line.substr(kDigits + kBetween.size()), line.substr(0, kDigits));
}

bool BroughtFiles::Has(std::string_view path, std::span<const Byte> content) const {
  const auto [first, last] = sums_.equal_range(path);
  if (first == last) return false;
  const std::string sum = ChecksumOf(content);
  return std::any_of(first, last, [&](const auto& brought) { return brought.second == sum; });
}

std::string ChecksumOf(std::span<const Byte> content) {
  const QByteArrayView bytes(content.data(), static_cast<qsizetype>(content.size()));
  return QCryptographicHash::hash(bytes.toByteArray(), QCryptographicHash::Sha256)
      .toHex()
      .toStdString();
}

}  // namespace repvolta
