#include "backup/BroughtFiles.h"

#include <QCryptographicHash>

#include "base/FileError.h"
#include "base/Lines.h"
#include "base/ProgramFiles.h"

namespace repvolta {
namespace {

constexpr std::size_t kDigits = 64;
constexpr std::string_view kBetween = "  ";  // a checksum and its path

}  // namespace

BroughtFiles::BroughtFiles() {
  try {
    ForEachLine(kBroughtList, [&](std::string_view line) {
      if (line.size() <= kDigits + kBetween.size() || line.substr(kDigits, 2) != kBetween) {
        return true;
      }
      sums_.emplace(line.substr(kDigits + kBetween.size()), line.substr(0, kDigits));
      return true;
    });
  } catch (const FileError&) {
    // A clip too many in a backup is better than one too few.
    sums_.clear();
  }
}

bool BroughtFiles::Has(std::string_view path, std::span<const Byte> content) const {
  const auto found = sums_.find(path);
  return found != sums_.end() && found->second == ChecksumOf(content);
}

std::string ChecksumOf(std::span<const Byte> content) {
  const QByteArrayView bytes(content.data(), static_cast<qsizetype>(content.size()));
  return QCryptographicHash::hash(bytes.toByteArray(), QCryptographicHash::Sha256)
      .toHex()
      .toStdString();
}

}  // namespace repvolta
