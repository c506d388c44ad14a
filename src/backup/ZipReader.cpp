#include "backup/ZipReader.h"

#include <algorithm>
#include <archive.h>
#include <archive_entry.h>
#include <cerrno>
#include <cstdio>
#include <string_view>

#include "backup/BackupError.h"
#include "backup/Utf8Locale.h"

namespace repvolta {
namespace {

constexpr std::size_t kBlock = std::size_t{64} * 1024;

ZipEntryType TypeOf(archive_entry* entry) {
  const bool isLink =
      archive_entry_symlink(entry) != nullptr || archive_entry_hardlink(entry) != nullptr;
  if (isLink) return ZipEntryType::kOther;
  if (archive_entry_filetype(entry) == AE_IFREG) return ZipEntryType::kFile;
  return archive_entry_filetype(entry) == AE_IFDIR ? ZipEntryType::kFolder : ZipEntryType::kOther;
}

/// `format` is the library's description: "ZIP 2.0 (deflation)".
bool IsOrdinary(std::string_view format) {
  return format.ends_with("(deflation)") || format.ends_with("(uncompressed)");
}

}  // namespace

void ZipReader::Freeing::operator()(archive* zip) const { archive_read_free(zip); }

ZipReader::ZipReader(const File& file) : file_(file), block_(kBlock), zip_(archive_read_new()) {
  const Utf8Locale utf8;
  archive_read_support_format_zip_seekable(zip_.get());
  archive_read_set_callback_data(zip_.get(), this);
  archive_read_set_read_callback(zip_.get(), &ZipReader::Provide);
  archive_read_set_seek_callback(zip_.get(), &ZipReader::Seek);
  if (archive_read_open1(zip_.get()) != ARCHIVE_OK) {
    Fail("It is no ZIP file, or its end is missing");
  }
}

std::optional<ZipEntry> ZipReader::Next() {
  const Utf8Locale utf8;
  archive_entry* entry = nullptr;
  const int result = archive_read_next_header(zip_.get(), &entry);
  areEntriesKnown_ = true;
  if (result == ARCHIVE_EOF && !failure_) return std::nullopt;
  if (result != ARCHIVE_OK) Fail("It is damaged");
  return Describe(entry);
}

std::size_t ZipReader::Read(std::span<Byte> buffer) {
  const Utf8Locale utf8;
  const auto count = archive_read_data(zip_.get(), buffer.data(), buffer.size());
  if (count < 0) Fail("It is damaged");
  return static_cast<std::size_t>(count);
}

ZipEntry ZipReader::Describe(archive_entry* entry) const {
  const char* path = archive_entry_pathname(entry);
  ZipEntry found;
  found.path = path == nullptr ? "" : path;
  found.type = TypeOf(entry);
  found.isEncrypted = archive_entry_is_encrypted(entry) != 0;
  found.isOrdinary = IsOrdinary(archive_format_name(zip_.get()));
  if (archive_entry_size_is_set(entry) != 0 && archive_entry_size(entry) >= 0) {
    found.size = static_cast<std::uint64_t>(archive_entry_size(entry));
  }
  found.time = archive_entry_mtime(entry);
  return found;
}

std::size_t ZipReader::ReadBlock() {
  if (!areEntriesKnown_ && readBeforeEntries_ > kLongestDirectory) {
    throw BackupError(file_.Path(), "It holds too many files");
  }
  const std::size_t count = file_.ReadAt(position_, block_);
  position_ += count;
  readBeforeEntries_ += count;
  return count;
}

void ZipReader::SeekTo(std::int64_t offset, int whence) {
  const std::uint64_t size = file_.Size();
  std::uint64_t start = 0;
  if (whence == SEEK_CUR) start = position_;
  if (whence == SEEK_END) start = size;
  // Below 0 it becomes very large.
  position_ = std::min(start + static_cast<std::uint64_t>(offset), size);
}

/// Runs the statement for the library, through which no exception may pass.
template <class Statement>
std::int64_t ZipReader::Guarded(archive* zip, Statement statement) {
  try {
    return statement();
  } catch (...) {
    failure_ = std::current_exception();
    archive_set_error(zip, EIO, "%s", "");
    return ARCHIVE_FATAL;
  }
}

long ZipReader::Provide(archive* zip, void* self, const void** block) {
  auto* reader = static_cast<ZipReader*>(self);
  *block = reader->block_.data();
  return reader->Guarded(zip, [&] { return static_cast<std::int64_t>(reader->ReadBlock()); });
}

std::int64_t ZipReader::Seek(archive* zip, void* self, std::int64_t offset, int whence) {
  auto* reader = static_cast<ZipReader*>(self);
  return reader->Guarded(zip, [&] {
    reader->SeekTo(offset, whence);
    return static_cast<std::int64_t>(reader->position_);
  });
}

void ZipReader::Fail(const char* what) const {
  if (failure_) std::rethrow_exception(failure_);
  throw BackupError(file_.Path(), what);
}

}  // namespace repvolta
