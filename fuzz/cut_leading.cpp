#include <algorithm>
#include <array>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>

#include "base/File.h"
#include "mp3/RepvoltaMP3.h"
#include "mp3/RepvoltaMP3v2.h"
#include "update/ProcessMP3tag.h"

#include "fakes/RecordingLog.h"
#include "support/Cost.h"
#include "support/Fuzz.h"
#include "support/Mp3Rule.h"

// The input is an MP3 file. Cutting off everything before its first frame keeps the rest, byte for
// byte, and its times; tagging it keeps the rest after the new tag. Copying it with its tag in one
// pass has the same result as copying and then tagging it.

namespace repvolta {
namespace {

constexpr const char* kSong = "song.mp3";
constexpr const char* kTitle = "three sets";
constexpr const char* kWorkout = "Monday.RPV";

/// Seconds and nanoseconds of the last change.
std::array<std::int64_t, 2> TimeOfChange() {
  struct stat status{};
  Require(stat(kSong, &status) == 0, "the file is there");
  return {status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

/// Writes a file with a date long ago.
void PutOldFile(std::span<const Byte> file) {
  PutFile(kSong, file);
  const std::array<timespec, 2> times{{{1000000000, 1}, {1100000000, 2}}};
  Require(utimensat(AT_FDCWD, kSong, times.data(), 0) == 0, "a file can be given a date");
}

void CutAndCompare(std::span<const Byte> file, const Mp3ByRule& rule) {
  PutOldFile(file);
  const auto timeBefore = TimeOfChange();
  RepvoltaMP3 mp3;
  Require(Succeeds<std::exception>([&] { mp3.SetFileName(kSong); }), "a file can be examined");
  {
    const LinearCost cost(file.size());
    mp3.RemoveLeadingData(RepvoltaMP3::FileTimes::kKept);
  }
  const bool cuts = rule.result != RuleResult::kNoFrame;
  const auto rest = file.subspan(cuts ? static_cast<std::size_t>(rule.headerOffset) : 0);
  Require(std::ranges::equal(GetFile(kSong), rest), "what is left begins with the first frame");
  Require(TimeOfChange() == timeBefore, "the times are kept");
}

/// `inTwoSteps` is the copy that was tagged afterwards; nothing when that failed.
void CopyAndCompare(std::span<const Byte> file, const std::optional<Bytes>& inTwoSteps) {
  constexpr const char* kSource = "source.mp3";
  PutFile(kSource, file);
  const auto plan = PlanTaggedCopy(kSource, kSong, kTitle, kWorkout);
  if (plan) {
    CopyFileOver(kSource, kSong, {plan->tag, plan->audioOffset});
    Require(inTwoSteps.has_value(), "what is planned can be done in two steps, too");
    Require(GetFile(kSong) == *inTwoSteps, "one pass makes what two steps make");
  }
  RemoveFile(kSource);
}

/// The frame that the rule found, and everything after it, must follow the new tag.
void TagAndCompare(std::span<const Byte> file, const Mp3ByRule& rule) {
  PutFile(kSong, file);
  RecordingLog log;
  const bool done = Succeeds<std::exception>([&] { ProcessMP3tag(kSong, kTitle, kWorkout, log); });
  const Bytes after = GetFile(kSong);
  CopyAndCompare(file, done ? std::optional(after) : std::nullopt);
  if (rule.result == RuleResult::kFrame) Require(done, "a file with a frame is tagged");
  if (rule.result != RuleResult::kFrame || !rule.hasID3v2) return;
  const auto audio = file.subspan(static_cast<std::size_t>(rule.headerOffset));
  const TagByRule inside = ReadTagByRule(audio);
  if (inside.present) return;  // It counts as the file's tag and is overwritten.
  Require(after.size() >= audio.size() &&
              std::ranges::equal(std::span(after).last(audio.size()), audio),
          "tagging leaves the audio as it was");
  cMP3ID3v2 tag;
  PutFile(kSong, after);
  tag.SetFileName(kSong);
  Require(tag.Title() == "song three sets", "the title is in the file");
}

}  // namespace
}  // namespace repvolta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace repvolta;
  static const FuzzFolder folder;
  const std::span<const Byte> file(data, size);
  const Mp3ByRule rule = ExamineByRule(file, TagsInside::kIgnored);
  const bool isUnderstood =
      rule.result == RuleResult::kFrame || rule.result == RuleResult::kNoFrame;
  if (isUnderstood) CutAndCompare(file, rule);
  TagAndCompare(file, rule);
  Require(folder.CountEntries() == 1, "nothing stays behind");
  return 0;
}
