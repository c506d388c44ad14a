#include "update/InstructionSize.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "base/File.h"
#include "instruction/MergeWAVfiles.h"
#include "sound/WavFormat.h"

namespace repvolta {
namespace {

/// Measured with the recorded clips: between 3.9 and 4.4 with the update's quality, -V4.
constexpr double kWavBytesToOneOfMp3 = 4;

/// A clip that does not exist yet: two seconds of speech at the rate of the recorded clips.
constexpr std::uint64_t kClipToBeSpoken = 64'000;
constexpr std::uint32_t kUsualByteRate = 32'000;

/// The bytes a second that the header of a clip tells; nothing when it has none.
std::optional<std::uint32_t> ByteRateOf(const std::string& file) {
  std::array<Byte, kWavHeaderSize> header{};
  const std::size_t read = File::Open(file, File::Access::kRead).ReadAt(0, header);
  if (read < header.size()) return std::nullopt;
  const std::uint32_t rate =
      LoadLittleEndian<std::uint32_t>(std::span(header).subspan(kByteRateOffset));
  return rate > 0 ? std::optional(rate) : std::nullopt;
}

/// Follows the joining of the clips.
class Joining {
 public:
  void BeginWithName(const ClipFiles::Found& clip) {
    if (clip.size) {
      result_.bytes = *clip.size;
      byteRate_ = ByteRateOf(clip.path);
    } else {
      result_.bytes = kWavHeaderSize + kClipToBeSpoken;
      result_.clips = InstructionSize::Clips::kNameToBeSpoken;
    }
  }

  void AddWord(const ClipFiles::Found& clip) {
    if (clip.size) result_.bytes = JoinedSize(result_.bytes, *clip.size);
  }

  InstructionSize Result() {
    const std::uint64_t samples =
        result_.bytes - std::min<std::uint64_t>(result_.bytes, kWavHeaderSize);
    result_.seconds = static_cast<double>(samples) / byteRate_.value_or(kUsualByteRate);
    return result_;
  }

 private:
  InstructionSize result_;
  std::optional<std::uint32_t> byteRate_;
};

}  // namespace

InstructionSize SizeOfInstruction(const std::vector<Clip>& clips, ClipFiles& files) {
  Joining joining;
  for (const Clip& clip : clips) {
    if (clip.kind == Clip::Kind::kName) {
      joining.BeginWithName(files.Of(clip));
    } else {
      joining.AddWord(files.Of(clip));
    }
  }
  return joining.Result();
}

std::uint64_t EncodedSize(const InstructionSize& instruction) {
  return static_cast<std::uint64_t>(
      std::ceil(static_cast<double>(instruction.bytes) / kWavBytesToOneOfMp3));
}

}  // namespace repvolta
