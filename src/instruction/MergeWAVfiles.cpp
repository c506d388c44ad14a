#include "instruction/MergeWAVfiles.h"

#include <algorithm>
#include <limits>
#include <optional>

#include "base/File.h"
#include "base/FileError.h"
#include "sound/WavFormat.h"

namespace repvolta {
namespace {

/// The copy begins with the last byte of the header, just before the samples.
constexpr std::uint64_t kCopyOffset = kWavHeaderSize - 1;
constexpr std::int64_t kRiffHeaderSize = 8;  // "RIFF" and the size, which the size excludes
constexpr std::int64_t kBeforeData = kWavHeaderSize + 1;

void WriteNumber(File& file, std::uint64_t offset, std::int64_t value) {
  if (value > std::numeric_limits<std::uint32_t>::max()) return;
  Bytes bytes(4);
  StoreLittleEndian(bytes, static_cast<std::uint32_t>(value));
  file.WriteAt(offset, bytes);
}

/// Joining never stops an update: a failing step is logged, once for all failures that follow from
/// it, and the next step runs.
class Joint {
 public:
  Joint(const std::string& target, const std::string& source, ProgressLog& log)
      : target_(target), source_(source), log_(log) {}

  void Join() {
    Try([&] {
      const auto source = OpenOrSayMissing(source_, File::Access::kRead);
      if (!source) return;
      auto target = OpenOrSayMissing(target_, File::Access::kReadWrite);
      if (target) Append(*target, *source);
    });
  }

 private:
  template <class Statement>
  void Try(Statement statement) {
    try {
      statement();
    } catch (const FileError& error) {
      Tell(error.Reason());
    }
  }

  /// People rely on the instruction, so a word must not be missing without notice.
  void Tell(const std::string& reason) {
    if (isTold_) return;
    isTold_ = true;
    log_.AddLineToUpdateList(NotJoinedLine(target_, source_, reason));
  }

  /// The opened file; logs and returns nothing when there is no such file. Throws FileError.
  std::optional<File> OpenOrSayMissing(const std::string& name, File::Access access) {
    try {
      return File::Open(name, access);
    } catch (const FileError&) {
      if (FileExists(name)) throw;
      log_.AddLineToUpdateList(MissingClipLine(name));
      return std::nullopt;
    }
  }

  /// The copied header byte replaces the last byte of the target (quirk 23). The data size is one
  /// less than the number of bytes after the header, and -1 if there are none (quirk 24). A file
  /// that is too short is reported, and joined all the same (quirk 28).
  void Append(File& target, const File& source) {
    const std::uint64_t length = target.SizeAtOpening();
    if (source.SizeAtOpening() < kWavHeaderSize) Tell(kSourceTooShort);
    if (length < kWavHeaderSize) Tell(TargetTooShortText(target_));
    const auto newLength = static_cast<std::int64_t>(CopySamples(target, source));
    Try([&] { WriteNumber(target, kRiffSizeOffset, newLength - kRiffHeaderSize); });
    Try([&] { WriteNumber(target, kFormatSizeOffset, kFormatChunkSize); });  // quirk 25
    Try([&] { WriteNumber(target, kDataSizeOffset, newLength - kBeforeData); });
    Try([&] { target.CloseWritten(); });
  }

  /// Returns the length that the target then has, which is asked for only where it is unknown.
  std::uint64_t CopySamples(File& target, const File& source) {
    const std::uint64_t length = target.SizeAtOpening();
    // An empty target has no last byte that could be replaced.
    if (length == 0) return 0;
    std::optional<std::uint64_t> end;
    Try([&] { end = CopyContent(source, kCopyOffset, target, length - 1); });
    return end ? std::max(*end, length) : target.Size();
  }

  const std::string& target_;
  const std::string& source_;
  ProgressLog& log_;
  bool isTold_ = false;
};

}  // namespace

std::string MissingClipLine(const std::string& file) { return "ERROR: " + file + " NOT FOUND."; }

std::string NotJoinedLine(const std::string& target, const std::string& source,
                          const std::string& reason) {
  return "ERROR: " + source + " could not be joined to " + target + ": " + reason;
}

std::string TargetTooShortText(const std::string& target) {
  return target + " is too short for a WAV file";
}

std::uint64_t JoinedSize(std::uint64_t target, std::uint64_t source) {
  const bool isJoined = target > 0 && source > kCopyOffset;
  const std::uint64_t joined = isJoined ? target - 1 + source - kCopyOffset : target;
  return std::max<std::uint64_t>(joined, kWavHeaderSize);
}

void MergeWAVfiles(const std::string& target, const std::string& source, ProgressLog& log) {
  Joint(target, source, log).Join();
}

}  // namespace repvolta
