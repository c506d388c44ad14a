#include "instruction/MergeWAVfiles.h"

#include <exception>
#include <limits>
#include <optional>

#include "base/File.h"
#include "base/FileError.h"
#include "platform/WavFormat.h"

namespace repvolta {
namespace {

/// The samples and, before them, the last byte of the header, which is copied along.
constexpr std::uint64_t kCopyOffset = kWavHeaderSize - 1;
constexpr std::int64_t kRiffHeaderSize = 8;  // "RIFF" and the size, which does not count them
constexpr std::int64_t kBeforeData = kWavHeaderSize + 1;

/// Joining never stops an update: a step that fails is passed over and the next one runs.
template <class Statement>
void Try(Statement statement) {
  try {
    statement();
  } catch (const std::exception&) {
  }
}

void WriteNumber(File& file, std::uint64_t offset, std::int64_t value) {
  if (value > std::numeric_limits<std::uint32_t>::max()) return;
  Bytes bytes(4);
  StoreLittleEndian(bytes, static_cast<std::uint32_t>(value));
  file.WriteAt(offset, bytes);
}

/// The copied header byte replaces the last byte of the target, and the data size is one less than
/// the bytes behind the header, so -1 where none are. Both are meant: joined files have always been
/// so.
void Append(File& target, const File& source) {
  const std::uint64_t length = target.Size();
  if (source.Size() < kWavHeaderSize || length < kWavHeaderSize) return;
  Try([&] { CopyContent(source, kCopyOffset, target, length - 1); });
  const auto newLength = static_cast<std::int64_t>(target.Size());
  Try([&] { WriteNumber(target, kRiffSizeOffset, newLength - kRiffHeaderSize); });
  Try([&] { WriteNumber(target, kFormatSizeOffset, kFormatChunkSize); });
  Try([&] { WriteNumber(target, kDataSizeOffset, newLength - kBeforeData); });
}

/// Nothing when the file cannot be opened.
std::optional<File> TryToOpen(const std::string& name, File::Access access) {
  try {
    return File::Open(name, access);
  } catch (const FileError&) {
    return std::nullopt;
  }
}

/// True, and logged, when there is no such file.
bool IsMissing(const std::string& name, const std::optional<File>& file, ProgressLog& log) {
  if (file || FileExists(name)) return false;
  log.AddLineToUpdateList("ERROR: " + name + " NOT FOUND.");
  return true;
}

}  // namespace

void MergeWAVfiles(const std::string& target, const std::string& source, ProgressLog& log) {
  const auto read = TryToOpen(source, File::Access::kRead);
  if (IsMissing(source, read, log)) return;
  auto written = TryToOpen(target, File::Access::kReadWrite);
  if (IsMissing(target, written, log) || !read) return;
  if (written) Try([&] { Append(*written, *read); });
}

}  // namespace repvolta
