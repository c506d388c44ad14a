#include "backup/ZipWriter.h"

#include <archive.h>
#include <archive_entry.h>
#include <memory>
#include <stdexcept>
#include <utility>

#include "backup/Utf8Locale.h"

namespace repvolta {
namespace {

constexpr unsigned kRights = 0644;

struct EntryFreeing {
  void operator()(archive_entry* entry) const { archive_entry_free(entry); }
};
using Entry = std::unique_ptr<archive_entry, EntryFreeing>;

Entry EntryOf(const ZipWriter::File& file, std::size_t size) {
  Entry entry(archive_entry_new());
  archive_entry_copy_pathname(entry.get(), file.path.c_str());
  archive_entry_set_filetype(entry.get(), AE_IFREG);
  archive_entry_set_perm(entry.get(), kRights);
  archive_entry_set_size(entry.get(), static_cast<std::int64_t>(size));
  archive_entry_set_mtime(entry.get(), file.time, 0);
  return entry;
}

}  // namespace

ZipWriter::ZipWriter(Write write) : write_(std::move(write)), zip_(archive_write_new()) {
  const Utf8Locale utf8;
  archive* zip = zip_.get();
  Check(archive_write_set_format_zip(zip) == ARCHIVE_OK);
  Check(archive_write_set_format_option(zip, "zip", "hdrcharset", "UTF-8") == ARCHIVE_OK);
  // The end of the file is no multiple of a block.
  Check(archive_write_set_bytes_in_last_block(zip, 1) == ARCHIVE_OK);
  Check(archive_write_open(zip, this, nullptr, &ZipWriter::Take, nullptr) == ARCHIVE_OK);
}

/// The library can only be freed whole when it ends the file, of which nothing more is written.
ZipWriter::~ZipWriter() { isGivenUp_ = true; }

void ZipWriter::Freeing::operator()(archive* zip) const { archive_write_free(zip); }

void ZipWriter::Add(const File& file, std::span<const Byte> content, Packing packing) {
  const Utf8Locale utf8;
  archive* zip = zip_.get();
  const bool isPacked = packing == Packing::kDeflated;
  Check((isPacked ? archive_write_zip_set_compression_deflate(zip)
                  : archive_write_zip_set_compression_store(zip)) == ARCHIVE_OK);
  const Entry entry = EntryOf(file, content.size());
  Check(archive_write_header(zip, entry.get()) == ARCHIVE_OK);
  while (!content.empty()) {
    const auto count = archive_write_data(zip, content.data(), content.size());
    Check(count > 0);
    content = content.subspan(static_cast<std::size_t>(count));
  }
  Check(archive_write_finish_entry(zip) == ARCHIVE_OK);
}

void ZipWriter::Finish() { Check(archive_write_close(zip_.get()) == ARCHIVE_OK); }

/// No exception may pass through the library, so what fails shows in Check.
long ZipWriter::Take(archive* /*zip*/, void* self, const void* bytes, std::size_t count) {
  auto* writer = static_cast<ZipWriter*>(self);
  try {
    const bool isWanted = !writer->isGivenUp_ && !writer->failure_;
    if (isWanted) writer->write_({static_cast<const Byte*>(bytes), count});
  } catch (...) {
    writer->failure_ = std::current_exception();
  }
  return static_cast<long>(count);
}

void ZipWriter::Check(bool isDone) {
  if (failure_) std::rethrow_exception(failure_);
  if (isDone) return;
  const char* why = archive_error_string(zip_.get());
  throw std::runtime_error(why == nullptr ? "The ZIP file could not be written" : why);
}

}  // namespace repvolta
