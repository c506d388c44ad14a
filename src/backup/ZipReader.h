#pragma once

#include <cstdint>
#include <exception>
#include <memory>
#include <optional>
#include <string>

#include "base/Bytes.h"
#include "base/File.h"

struct archive;
struct archive_entry;

namespace repvolta {

enum class ZipEntryType { kFile, kFolder, kOther };

/// What a ZIP file says of one of its entries; nothing of it is checked.
struct ZipEntry {
  std::string path;
  ZipEntryType type = ZipEntryType::kOther;
  bool isEncrypted = false;
  bool isOrdinary = false;            // stored or deflated
  std::optional<std::uint64_t> size;  // bytes, unpacked
  std::int64_t time = 0;              // of the last change, as time()
};

/// Goes through a ZIP file once. All its calls throw BackupError that names the file when it is
/// damaged, and FileError when it cannot be read. Needs memory for the list of its entries, which
/// is at most `kLongestDirectory`, and a few blocks.
class ZipReader {
 public:
  static constexpr std::uint64_t kLongestDirectory = std::uint64_t{16} << 20;

  /// `file` must outlive this object.
  explicit ZipReader(const File& file);

  /// Nothing after the last one.
  std::optional<ZipEntry> Next();

  /// The next bytes of the current entry's content; 0 at its end.
  std::size_t Read(std::span<Byte> buffer);

 private:
  struct Freeing {
    void operator()(archive* zip) const;
  };

  static long Provide(archive* zip, void* self, const void** block);
  static std::int64_t Seek(archive* zip, void* self, std::int64_t offset, int whence);

  template <class Statement>
  std::int64_t Guarded(archive* zip, Statement statement);
  std::size_t ReadBlock();
  void SeekTo(std::int64_t offset, int whence);
  [[noreturn]] void Fail(const char* what) const;
  ZipEntry Describe(archive_entry* entry) const;

  const File& file_;
  Bytes block_;
  std::uint64_t position_ = 0;
  std::uint64_t readBeforeEntries_ = 0;
  bool areEntriesKnown_ = false;
  std::exception_ptr failure_;  // of a call that was made by the library
  std::unique_ptr<archive, Freeing> zip_;
};

}  // namespace repvolta
