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
    // A frame whose identifier looks like the start of a tag is not written.
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

/// The header without its size, and the frames.
Bytes BuiltByRule(const Id3v2Frames& frames) {
  Bytes tag{'I', 'D', '3', 3, 0, 0, 0, 0, 0, 0};
  for (const std::string& identifier : frames.Identifiers()) {
    if (identifier.find(kId3v2Marker) != std::string::npos) continue;
    for (std::size_t i = 1; i <= frames.Count(identifier); ++i) {
      const std::string text = ToWindows1252(frames.Text(identifier, i));
      Bytes header(11);
      std::ranges::copy(AsBytes(identifier), header.begin());
      StoreBigEndian32(std::span(header).subspan(4), static_cast<std::uint32_t>(text.size() + 1));
      tag.insert(tag.end(), header.begin(), header.end());
      std::ranges::copy(AsBytes(text), std::back_inserter(tag));
    }
  }
  return tag;
}

/// The file after writing the tag, whose size is still missing.
Bytes WrittenByRule(std::span<const Byte> file, Bytes tag) {
  const TagByRule old = ReadTagByRule(file);
  const auto oldSize = static_cast<std::size_t>(std::max(old.size, 0));
  const bool stays = old.present && oldSize > tag.size();
  const std::size_t size = stays ? oldSize : (tag.size() / kTagStep + 1) * kTagStep;
  StoreBigEndian32(std::span(tag).subspan(kId3v2SizeOffset), static_cast<std::uint32_t>(size));
  if (stays) tag.resize(std::min(tag.size() + 10, size));
  Bytes after(stays ? 0 : size - oldSize);
  after.insert(after.end(), file.begin(), file.end());
  const std::size_t offset = stays ? old.offset : 0;
  after.resize(std::max(after.size(), offset + tag.size()));
  std::ranges::copy(tag, after.begin() + static_cast<std::ptrdiff_t>(offset));
  return after;
}

/// The frames must have the held texts; others that stood after them may follow.
void RequireReadBack(std::span<const Byte> file, const Texts& held) {
  const Texts read = TextsOf(ReadTagByRule(file));
  for (const auto& [identifier, texts] : held) {
    const auto found = read.find(identifier);
    Require(found != read.end() && found->second.size() >= texts.size() &&
                std::equal(texts.begin(), texts.end(), found->second.begin()),
            "what was written is read back");
  }
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

/// Writes the held tag; the file must then have the set frames and all its earlier content where
/// the rule puts them, byte by byte.
void WriteAndCompare(cMP3ID3v2& tag) {
  const Bytes before = GetFile(kSong);
  {
    const LinearCost cost(before.size());
    tag.WriteTag();
  }
  const Bytes after = GetFile(kSong);
  Require(after == WrittenByRule(before, BuiltByRule(tag.Frames())), "the file is the rule's");
  RequireReadBack(after, TextsOf(tag.Frames()));
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

  const Texts held = TextsOf(tag.Frames());
  tag.SetFileName(kSong);
  if (TextsOf(tag.Frames()) == held) {
    const Bytes once = GetFile(kSong);
    tag.WriteTag();
    Require(GetFile(kSong).size() == once.size(), "a tag that is written again does not grow");
  }
  Require(folder.CountEntries() == 1, "nothing stays behind");
  return 0;
}
