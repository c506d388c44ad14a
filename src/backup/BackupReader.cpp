#include "backup/BackupReader.h"

#include <array>
#include <set>
#include <utility>

#include "backup/ZipReader.h"
#include "base/Text.h"

namespace repvolta {
namespace {

constexpr std::size_t kPiece = std::size_t{64} * 1024;

std::string InQuotes(const std::string& path) { return "\"" + ShownOnOneLine(path) + "\""; }

/// One way through a backup, in which each entry is checked.
class BackupPass {
 public:
  BackupPass(const File& file, const BackupLimits& limits)
      : file_(file), limits_(limits), zip_(file) {}

  /// Goes to the next entry; false after the last one. A folder has no kind.
  bool Next() {
    std::optional<ZipEntry> next = zip_.Next();
    if (!next) return false;
    entry_ = std::move(*next);
    if (++count_ > limits_.entries) throw BackupError(file_.Path(), "It holds too many files");
    return true;
  }

  const ZipEntry& Entry() const { return entry_; }

  /// Nothing for a folder. Throws BackupError for what no backup has.
  std::optional<BackupKind> CheckedKind() {
    if (entry_.type == ZipEntryType::kFolder) {
      if (!IsBackupFolder(entry_.path)) Refuse("which is no folder of Repvolta's");
      return std::nullopt;
    }
    const auto kind = BackupKindOf(entry_.path);
    if (!kind) Refuse("which is no file of Repvolta's");
    if (entry_.type != ZipEntryType::kFile) Refuse("which is a link or a device");
    if (!paths_.insert(FoldedBackupPath(entry_.path)).second) Refuse("and more than once");
    return kind;
  }

  /// The whole content of the entry.
  Bytes Content(BackupKind kind) {
    if (entry_.isEncrypted) Refuse("which is encrypted");
    if (!entry_.isOrdinary) Refuse("which is compressed in a way that Repvolta does not know");
    const std::uint64_t most = LargestInBackup(kind);
    if (entry_.size.value_or(0) > most) Refuse("which is too large");
    Bytes content;
    content.reserve(static_cast<std::size_t>(entry_.size.value_or(0)));
    std::array<Byte, kPiece> piece;
    while (const std::size_t count = zip_.Read(piece)) {
      Count(count);
      if (content.size() + count > most) Refuse("which is too large");
      content.insert(content.end(), piece.begin(), piece.begin() + static_cast<long>(count));
    }
    const std::string why = WhyNotOfKind(kind, content);
    if (!why.empty()) throw BackupError(file_.Path(), InQuotes(entry_.path) + " in it: " + why);
    return content;
  }

 private:
  /// Counts what comes out: what the file says of itself may be wrong.
  void Count(std::size_t bytes) {
    unpacked_ += bytes;
    if (unpacked_ > limits_.bytes) throw BackupError(file_.Path(), "It holds too much");
  }

  [[noreturn]] void Refuse(const char* what) const {
    throw BackupError(file_.Path(), "It holds " + InQuotes(entry_.path) + ", " + what);
  }

  const File& file_;
  const BackupLimits& limits_;
  ZipReader zip_;
  ZipEntry entry_;
  std::set<std::u32string> paths_;
  std::size_t count_ = 0;
  std::uint64_t unpacked_ = 0;
};

void RefuseOrigin(const File& file, const BackupOrigin& origin) {
  if (origin.format > kBackupFormat) {
    throw BackupError(file.Path(),
                      "A newer Repvolta made it (version " + ShownOnOneLine(origin.version) + ")");
  }
  if (origin.format < 1) throw BackupError(file.Path(), "Repvolta did not make it");
}

struct Beginning {
  BackupOrigin origin;
  std::size_t count;
};

/// What a backup is, and how many entries it has, without looking at anything else: a newer version
/// may have made it.
Beginning ReadBeginning(const File& file, const BackupLimits& limits) {
  Beginning beginning{};
  beginning.origin.format = 0;
  for (BackupPass pass(file, limits); pass.Next(); ++beginning.count) {
    const bool isManifest = pass.Entry().path == kBackupManifest;
    if (!isManifest || pass.Entry().type != ZipEntryType::kFile) continue;
    beginning.origin = ParseManifest(AsText(pass.Content(BackupKind::kManifest)));
  }
  RefuseOrigin(file, beginning.origin);
  return beginning;
}

}  // namespace

BackupReader::BackupReader(const std::string& path, BackupWatch watch, BackupLimits limits)
    : file_(File::Open(path, File::Access::kRead)),
      stamp_(file_.Stamp()),
      watch_(std::move(watch)),
      limits_(limits) {
  Beginning beginning = ReadBeginning(file_, limits_);
  origin_ = std::move(beginning.origin);
  count_ = beginning.count;
  ForEachFile([&](const BackupEntry& entry, std::span<const Byte> /*content*/) {
    entries_.push_back(entry);
  });
}

void BackupReader::ForEachFile(const TakeBackupFile& take) const {
  if (file_.Stamp() != stamp_) throw BackupError(file_.Path(), "Another program has changed it");
  std::size_t done = 0;
  for (BackupPass pass(file_, limits_); pass.Next();) {
    const auto kind = pass.CheckedKind();
    if (kind) {
      const Bytes content = pass.Content(*kind);
      if (*kind != BackupKind::kManifest) {
        const ZipEntry& entry = pass.Entry();
        take({entry.path, *kind, content.size(), entry.time}, content);
      }
    }
    if (watch_) watch_(++done, count_);
  }
}

}  // namespace repvolta
