#include "backup/WriteBackup.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <optional>

#include "app/BroughtFiles.h"
#include "backup/FilesToBackUp.h"
#include "backup/ZipWriter.h"
#include "base/FileError.h"
#include "base/Text.h"
#include "base/WholeFile.h"
#include "base/WorkingFile.h"
#include "keeping/VersionName.h"

namespace repvolta {
namespace {

constexpr int kTries = 3;
constexpr const char* kFailure = "could not be written";

/// Another program has changed what is being backed up.
class ChangedMeanwhile {};

ZipWriter::Packing PackingOf(BackupKind kind) {
  return IsClip(kind) ? ZipWriter::Packing::kStored : ZipWriter::Packing::kDeflated;
}

std::optional<File> OpenUnlessGone(const std::string& path) {
  try {
    return File::Open(path, File::Access::kRead);
  } catch (const FileError& error) {
    if (error.Error() == ENOENT) return std::nullopt;
    throw;
  }
}

/// The content of the file as it was found. Throws ChangedMeanwhile.
Bytes ContentOf(const FileToBackUp& wanted) {
  const std::optional<File> file = OpenUnlessGone(wanted.path);
  if (!file || file->Stamp() != wanted.stamp) throw ChangedMeanwhile();
  Bytes content(static_cast<std::size_t>(wanted.stamp.size));
  const std::size_t count = file->ReadAt(0, content);
  if (count != content.size() || file->Stamp() != wanted.stamp) throw ChangedMeanwhile();
  return content;
}

/// One try to write a backup.
class BackupTry {
 public:
  BackupTry(const std::string& target, const BackupWatch& watch)
      : target_(target), watch_(watch), found_(FindFilesToBackUp()), writer_(target) {
    result_.leftOut = found_.leftOut;
  }

  BackupResult Run(const BackupOrigin& origin) {
    Write(origin);
    try {
      writer_.Commit([&] { Compare(); });
    } catch (const FileError& error) {
      if (!writer_.Placed()) throw;
      result_.weakness = error.what();
    }
    return result_;
  }

 private:
  void Write(const BackupOrigin& origin) {
    ZipWriter zip([&](std::span<const Byte> bytes) { writer_.Append(bytes); });
    zip.Add({kBackupManifest, std::time(nullptr)}, AsBytes(ManifestText(WithFormat(origin))),
            ZipWriter::Packing::kDeflated);
    for (const FileToBackUp& file : found_.files) {
      Add(file, zip);
      // Comparing is the other half.
      if (watch_) watch_(++done_, 2 * found_.files.size());
    }
    zip.Finish();
    if (FindFilesToBackUp() != found_) throw ChangedMeanwhile();
  }

  /// So that an older program can read what it understands, and says why of the rest.
  BackupOrigin WithFormat(BackupOrigin origin) const {
    origin.format = 1;
    for (const FileToBackUp& file : found_.files) {
      origin.format = std::max(origin.format, FormatWith(file.kind));
    }
    return origin;
  }

  void Add(const FileToBackUp& file, ZipWriter& zip) {
    const Bytes content = ContentOf(file);
    if (CanBeBrought(file.kind) && brought_.Has(file.path, content)) return;
    const std::string why = WhyNotOfKind(file.kind, content);
    if (!why.empty()) {
      result_.leftOut.push_back(ShownOnOneLine(file.path) + ": " + why);
      return;
    }
    zip.Add({file.archived, file.stamp.seconds}, content, PackingOf(file.kind));
    sums_[file.archived] = ChecksumOf(content);
    ++result_.counts[file.kind];
  }

  /// Reads what is on the device, not what the system still remembers of writing it.
  void Compare() {
    const std::string written = WorkingName(target_);
    try {
      const File file = File::Open(written, File::Access::kRead);
      static_cast<void>(posix_fadvise(file.OpenAs().Number(), 0, 0, POSIX_FADV_DONTNEED));
      const BackupReader reader(written,
                                [&](std::size_t /*done*/, std::size_t all) { Watch(all); });
      std::map<std::string, std::string> sums;
      reader.ForEachFile([&](const BackupEntry& entry, std::span<const Byte> content) {
        sums[entry.path] = ChecksumOf(content);
      });
      if (sums != sums_) throw BackupError(written, "It does not hold what was written");
    } catch (const FileError& error) {
      throw FileError(target_, kFailure, "Read again, it is no backup. " + error.Reason());
    }
  }

  /// One of `all` files of the backup has been read, which is done twice.
  void Watch(std::size_t all) {
    const std::size_t half = found_.files.size();
    if (watch_) watch_(half + half * ++compared_ / (2 * all), 2 * half);
  }

  const std::string& target_;
  const BackupWatch& watch_;
  const FilesToBackUp found_;
  const BroughtFiles brought_;
  WholeFileWriter writer_;
  BackupResult result_;
  std::map<std::string, std::string> sums_;  // checksums, by the path in the backup
  std::size_t done_ = 0;
  std::size_t compared_ = 0;
};

}  // namespace

BackupOrigin OriginHere(const std::string& programDirectory, double now) {
  const std::string name = FileNameOf({now, BeforeWhat::kChange});
  const char* home = std::getenv("HOME");
  return {.format = kBackupFormat,
          .version = REPVOLTA_VERSION,
          .made = name.substr(0, name.find(" before ")),
          .programDirectory = programDirectory,
          .home = home == nullptr ? "" : home};
}

BackupResult WriteBackup(const std::string& target, const BackupOrigin& origin,
                         const BackupWatch& watch) {
  for (int tries = 1; tries <= kTries; ++tries) {
    try {
      return BackupTry(target, watch).Run(origin);
    } catch (const ChangedMeanwhile&) {
      // The next try sees the files as they are now.
    } catch (const std::runtime_error& error) {
      if (dynamic_cast<const FileError*>(&error) != nullptr) throw;
      throw FileError(target, kFailure, error.what());
    }
  }
  throw FileError(target, kFailure, "Another program goes on changing your files");
}

}  // namespace repvolta
