#include <limits>

#include "mp3/GetPlayTime.h"
#include "mp3/RepvoltaMP3.h"

#include "support/Cost.h"
#include "support/Fuzz.h"
#include "support/Mp3Rule.h"

// The input is an MP3 file. The program must find the same in it as the plain rule.

namespace repvolta {
namespace {

constexpr const char* kSong = "song.mp3";

RuleResult Examine(RepvoltaMP3& mp3) {
  try {
    mp3.SetFileName(kSong);
    return mp3.FileName().empty() ? RuleResult::kNoFrame : RuleResult::kFrame;
  } catch (const DivisionByZero&) {
    return RuleResult::kDividesByZero;
  } catch (const std::overflow_error&) {
    return RuleResult::kOverflows;
  }
}

void RequireSame(const MP3Info& info, const Mp3ByRule& rule) {
  Require(info.headerOffset == rule.headerOffset, "the first frame is the rule's");
  Require(info.valid == rule.valid && info.vbr == rule.vbr, "a Xing header is the rule's");
  Require(info.bitRate == rule.bitRate && info.sampleRate == rule.sampleRate, "rates");
  Require(info.audioBytes == rule.audioBytes && info.frameCount == rule.frameCount, "lengths");
  Require(info.playTime == rule.playTime, "the play time is the rule's");
  Require(info.hasID3v1 == rule.hasID3v1 && info.hasID3v2 == rule.hasID3v2, "tags");
}

void Compare(std::span<const Byte> file, RepvoltaMP3::EmbeddedTags embedded, TagsInside inside) {
  const Mp3ByRule rule = ExamineByRule(file, inside);
  RepvoltaMP3 mp3(embedded);
  RuleResult result{};
  {
    const LinearCost cost(file.size());
    result = Examine(mp3);
  }
  Require(result == rule.result, "a file is understood or refused as the rule says");
  if (result == RuleResult::kFrame) RequireSame(mp3.Info(), rule);
  if (result == RuleResult::kNoFrame) Require(mp3.Info().fileLength == 0, "nothing is known");
}

void ComparePlayTime(std::span<const Byte> file) {
  const Mp3ByRule rule = ExamineByRule(file, TagsInside::kIgnored);
  std::int16_t seconds = 0;
  const bool known = Succeeds<std::exception>([&] { seconds = GetPlayTime(kSong); });
  const bool fits = rule.playTime >= std::numeric_limits<std::int16_t>::min() &&
                    rule.playTime <= std::numeric_limits<std::int16_t>::max();
  const bool examined = rule.result == RuleResult::kFrame || rule.result == RuleResult::kNoFrame;
  Require(known == (examined && fits), "a play time is told when there is one");
  if (known) Require(seconds == rule.playTime, "the play time told is the rule's");
}

}  // namespace
}  // namespace repvolta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace repvolta;
  static const FuzzFolder folder;
  const std::span<const Byte> file(data, size);
  PutFile(kSong, file);
  Compare(file, RepvoltaMP3::EmbeddedTags::kIgnored, TagsInside::kIgnored);
  Compare(file, RepvoltaMP3::EmbeddedTags::kSearched, TagsInside::kSearched);
  ComparePlayTime(file);
  return 0;
}
