#include <algorithm>

#include "instruction/MergeWAVfiles.h"
#include "sound/WavFormat.h"

#include "fakes/RecordingLog.h"
#include "support/Cost.h"
#include "support/Fuzz.h"

// The input is a choice, then two files. They are joined as the rule says.

namespace repvolta {
namespace {

constexpr const char* kTarget = "temp.wav";
constexpr const char* kSource = "clip.wav";

void Put32(Bytes& file, std::size_t offset, std::size_t value) {
  StoreLittleEndian(std::span(file).subspan(offset), static_cast<std::uint32_t>(value));
}

/// The last byte of the target, if any, is replaced by the last byte of the source's header, if
/// any, and the samples follow; then the sizes are set, however short the file is.
Bytes JoinedByRule(std::span<const Byte> target, std::span<const Byte> source) {
  Bytes joined(target.begin(), target.end());
  if (!target.empty() && source.size() >= kWavHeaderSize) {
    joined.pop_back();
    joined.insert(joined.end(), source.begin() + kWavHeaderSize - 1, source.end());
    Require(joined.size() == target.size() + source.size() - kWavHeaderSize, "the rule's length");
  }
  const std::size_t length = joined.size();
  joined.resize(std::max(length, kWavHeaderSize));
  Put32(joined, kRiffSizeOffset, length - 8);
  Put32(joined, kFormatSizeOffset, kFormatChunkSize);
  Put32(joined, kDataSizeOffset, length - kWavHeaderSize - 1);
  return joined;
}

bool IsShort(std::span<const Byte> file) { return file.size() < kWavHeaderSize; }

/// Requires a single line with this reason when something is wrong, and else none.
void RequireTold(const RecordingLog& log, bool isWrong, std::string_view reason) {
  Require(log.lines.size() == (isWrong ? 1 : 0), "what is wrong is told, once");
  for (const std::string& line : log.lines) {
    Require(line.starts_with("ERROR: ") && line.ends_with(reason), "the line tells what is wrong");
  }
}

void JoinTwo(std::span<const Byte> target, std::span<const Byte> source) {
  PutFile(kTarget, target);
  PutFile(kSource, source);
  RecordingLog log;
  {
    const LinearCost cost(target.size() + source.size());
    MergeWAVfiles(kTarget, kSource, log);
  }
  RequireTold(log, IsShort(target) || IsShort(source), " too short for a WAV file");
  Require(GetFile(kTarget) == JoinedByRule(target, source), "the joined file is the rule's");
  Require(std::ranges::equal(GetFile(kSource), source), "the clip is untouched");
}

/// Joining a file to itself must end, and at most double its length.
void JoinToItself(std::span<const Byte> target) {
  PutFile(kTarget, target);
  RecordingLog log;
  MergeWAVfiles(kTarget, kTarget, log);
  RequireTold(log, IsShort(target), " too short for a WAV file");
  Require(GetFile(kTarget).size() == JoinedByRule(target, target).size(),
          "a file joins itself once");
}

void JoinMissing(std::span<const Byte> target) {
  PutFile(kTarget, target);
  RecordingLog log;
  MergeWAVfiles(kTarget, "missing.wav", log);
  RequireTold(log, true, " NOT FOUND.");
  Require(std::ranges::equal(GetFile(kTarget), target), "a missing clip changes nothing");
}

}  // namespace
}  // namespace repvolta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace repvolta;
  static const FuzzFolder folder;
  FuzzInput input(data, size);
  const Byte choice = input.TakeByte();
  const auto files = input.Rest().subspan(std::min<std::size_t>(input.Rest().size(), 2));
  const std::size_t split = files.empty() ? 0 : input.TakeNumber() % (files.size() + 1);
  JoinTwo(files.first(split), files.subspan(split));
  if (choice % 8 == 1) JoinToItself(files.first(split));
  if (choice % 8 == 2) JoinMissing(files);
  return 0;
}
