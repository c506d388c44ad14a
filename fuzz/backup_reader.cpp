#include <set>

#include "backup/BackupReader.h"

#include "support/Fuzz.h"

// The input is a backup from anywhere. Whatever is unpacked of it must be what a backup can hold,
// the same at each reading, and no more than the limits allow; or it must be refused with a reason.

namespace {

using namespace repvolta;

constexpr BackupLimits kLimits = {.entries = 50, .bytes = std::uint64_t{1} << 20};

void CheckEntry(const BackupEntry& entry, std::span<const Byte> content) {
  Require(BackupKindOf(entry.path) == entry.kind, "each file is of the kind that its path says");
  Require(entry.kind != BackupKind::kManifest, "the manifest is no file to restore");
  Require(entry.path.front() != '/' && entry.path.find("..") != 0 &&
              entry.path.find("/../") == std::string::npos &&
              entry.path.find('\\') == std::string::npos &&
              entry.path.find('\0') == std::string::npos,
          "no path leads elsewhere");
  Require(entry.size == content.size(), "the size is that of the content");
  Require(content.size() <= LargestInBackup(entry.kind), "no file is too large");
  Require(WhyNotOfKind(entry.kind, content).empty(), "each content can be that of its kind");
}

void CheckBackup(const BackupReader& backup) {
  std::size_t count = 0;
  std::uint64_t bytes = 0;
  std::set<std::u32string> paths;
  backup.ForEachFile([&](const BackupEntry& entry, std::span<const Byte> content) {
    CheckEntry(entry, content);
    Require(count < backup.Entries().size() && backup.Entries()[count] == entry,
            "what is unpacked is what was listed");
    Require(paths.insert(FoldedBackupPath(entry.path)).second, "no path comes twice");
    ++count;
    bytes += content.size();
  });
  Require(count == backup.Entries().size(), "all that was listed is unpacked");
  Require(count < kLimits.entries && bytes <= kLimits.bytes, "the limits hold");
  Require(backup.Origin().format >= 1 && backup.Origin().format <= kBackupFormat,
          "the format is one that is understood");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const FuzzFolder folder;
  PutFile("b.zip", std::span(data, size));
  Succeeds<BackupError>([] { CheckBackup(BackupReader("b.zip", {}, kLimits)); });
  Require(folder.CountEntries() == 1, "reading writes nothing");
  return 0;
}
