#include <algorithm>
#include <map>

#include "base/SingleByteText.h"
#include "mp3/Id3v2Format.h"
#include "mp3/RepvoltaMP3v2.h"
#include "update/ProcessMP3tag.h"

#include "support/Cost.h"
#include "support/Fuzz.h"
#include "support/Mp3Rule.h"

// The input is a title, then an MP3 file whose tag is read, changed and written back.

namespace repvolta {
namespace {

constexpr const char* kSong = "song.mp3";

/// The texts by identifier, as the file holds them.
using Texts = std::map<std::string, std::vector<std::string>>;

std::string Filled(std::string identifier) {
  identifier.resize(4);
  return identifier;
}

Texts TextsOf(const Id3v2Frames& frames) {
  Texts texts;
  for (const std::string& identifier : frames.Identifiers()) {
    // No frame is written whose identifier could be taken for the start of a tag.
    if (identifier.find(kId3v2Marker) != std::string::npos) continue;
    for (std::size_t i = 1; i <= frames.Count(identifier); ++i) {
      std::string bytes = ToWindows1252(frames.Text(identifier, i));
      std::erase(bytes, '\0');
      texts[Filled(identifier)].push_back(bytes);
    }
  }
  return texts;
}

Texts TextsOf(const TagByRule& tag) {
  Texts texts;
  for (const FrameByRule& frame : tag.frames) {
    texts[Filled(frame.identifier)].push_back(frame.bytes);
  }
  return texts;
}

/// The bytes of the file, from its end, that no tag can claim.
void RequireAudioUntouched(std::span<const Byte> before, std::span<const Byte> after) {
  const TagByRule old = ReadTagByRule(before);
  const auto claimed = static_cast<std::size_t>(std::max(old.size, 0));
  const std::size_t start = (old.present ? old.offset : 0) + claimed;
  if (start >= before.size()) return;
  const auto audio = before.subspan(start);
  Require(after.size() >= audio.size() && std::ranges::equal(after.last(audio.size()), audio),
          "the audio behind a tag is untouched");
}

void RequireSmallGrowth(std::size_t before, std::size_t after, std::size_t tagSize) {
  Require(after <= before + tagSize + kTagStep, "a file grows by its tag at the most");
}

/// Writes the held tag; the file then holds what was set and all that it held before.
void WriteAndCompare(cMP3ID3v2& tag) {
  const Bytes before = GetFile(kSong);
  {
    const LinearCost cost(before.size());
    tag.WriteTag();
  }
  const Bytes after = GetFile(kSong);
  Require(TextsOf(ReadTagByRule(after)) == TextsOf(tag.Frames()), "what was written is read back");
  RequireAudioUntouched(before, after);
  RequireSmallGrowth(before.size(), after.size(), tag.Frames().Build().size() + kId3v2HeaderSize);
}

}  // namespace
}  // namespace repvolta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace repvolta;
  static const FuzzFolder folder;
  FuzzInput input(data, size);
  const std::string title = FromWindows1252(input.TakeText());
  PutFile(kSong, input.Rest());
  cMP3ID3v2 tag;
  tag.SetFileName(kSong);
  WriteAndCompare(tag);
  tag.SetTitle(title);
  tag.SetUserUrl("https://a.example/");
  WriteAndCompare(tag);

  tag.SetFileName(kSong);
  const Bytes once = GetFile(kSong);
  tag.WriteTag();
  Require(GetFile(kSong).size() == once.size(), "a tag that is written again does not grow");
  Require(folder.CountEntries() == 1, "nothing stays behind");
  return 0;
}
